// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/form_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "display/qt/painting/surfaces.h"
#include "display/qt/windows/qt_desktop.h"
#include "display/qt/windows/rack_window.h"
#include "display/qt/windows/view_builder.h"

namespace display::qt {

FormView::FormView(QtDesktop& desktop, Form& form, QWidget* parent)
    : QWidget(parent), desktop_(desktop), form_(form), scale_(desktop.scale()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    // A click beside the controls does not move the focus.
    setFocusPolicy(Qt::NoFocus);
    setObjectName(QString::fromStdString(form.name()));
    build();
}

FormView::~FormView() = default;

void FormView::build() {
    for (Control* control : form_.controls()) {
        ViewBuilder builder(desktop_, *this);
        control->accept(builder);
        Item item;
        item.control = control;
        item.painted = std::move(builder.painted);
        item.widget = builder.widget;
        if (item.widget) {
            item.widget->widget().setObjectName(QString::fromStdString(control->name()));
            item.widget->widget().hide();
            item.widget->widget().installEventFilter(this);
        }
        items_.push_back(std::move(item));
        if (const auto* panel = dynamic_cast<const Panel*>(control)) panels_.push_back(panel);
    }
    takeDrawingKeys();
}

QWidget* FormView::widgetOf(const Control& control) const {
    for (const Item& item : items_) {
        if (item.control == &control) return item.widget ? &item.widget->widget() : nullptr;
    }
    return nullptr;
}

AccessibleLabels& FormView::accessible() {
    if (!accessible_) accessible_ = std::make_unique<AccessibleLabels>(*this);
    return *accessible_;
}

void FormView::orderTabs() {
    std::vector<Control*> order;
    for (const Item& item : items_) {
        if (item.widget && item.control->tabIndex > 0) order.push_back(item.control);
    }
    std::ranges::stable_sort(order, {}, &Control::tabIndex);
    for (const Control* control : order) tabOrder_.push_back(widgetOf(*control));
    for (std::size_t i = 1; i < tabOrder_.size(); ++i) setTabOrder(tabOrder_[i - 1], tabOrder_[i]);
}

void FormView::focusFirst() {
    const Item* first = nullptr;
    for (const Item& item : items_) {
        if (!item.widget || item.control->tabIndex <= 0 || !item.widget->widget().isEnabled() ||
            item.widget->widget().isHidden()) {
            continue;
        }
        if (!first || item.control->tabIndex < first->control->tabIndex) first = &item;
    }
    (first ? &first->widget->widget() : this)->setFocus(Qt::OtherFocusReason);
}

bool FormView::containersChanged() const {
    return std::ranges::any_of(panels_,
                               [this](const Panel* panel) { return panel->revision() > drawn_; });
}

bool FormView::insideChanged(const Control& control) const {
    for (const Panel* in = control.container; in; in = in->container) {
        if (in->revision() > drawn_) return true;
    }
    return false;
}

namespace {

/// Merges rectangles that are close together: the overhead of another one costs more than the
/// pixels it saves.
void merge(std::vector<QRect>& rects) {
    constexpr int kWorth = 1500;
    auto area = [](const QRect& rect) { return rect.width() * rect.height(); };
    std::vector<QRect> merged;
    for (QRect rect : rects) {
        for (std::size_t i = 0; i < merged.size();) {
            const QRect both = merged[i].united(rect);
            if (area(both) <= area(merged[i]) + area(rect) + kWorth) {
                rect = both;
                merged.erase(merged.begin() + static_cast<std::ptrdiff_t>(i));
                i = 0;
            } else {
                ++i;
            }
        }
        merged.push_back(rect);
    }
    rects.swap(merged);
}

}  // namespace

Scale FormView::wantedScale() const {
    qreal factor = desktop_.scale().px(1);
    const RackWindow* rack = desktop_.rackWindow();
    if (rack && rack->holds(form_)) return {factor, devicePixelRatioF()};
    const QRect room = desktop_.roomFor(form_);
    if (form_.width > 0.f) factor = std::min(factor, room.width() / qreal(form_.width));
    if (form_.height > 0.f) factor = std::min(factor, room.height() / qreal(form_.height));
    return {factor * zoom_, devicePixelRatioF()};
}

void FormView::sync() {
    const Scale scale = wantedScale();
    const bool first = drawn_ == 0;
    const bool rescaled = !(scale == scale_);
    if (!stale() && !rescaled) return;
    const std::uint64_t upTo = form_.clock();
    const bool formChanged = form_.revision() > drawn_ && (formEnabled_ != form_.enabled ||
                                                           language_ != form_.language || first);
    const bool containers = containersChanged();
    const bool turned = formEnabled_ != form_.enabled;
    formEnabled_ = form_.enabled;
    language_ = form_.language;
    if (rescaled || first) background_ = QPixmap();
    scale_ = scale;
    if (rescaled || first) alignColumns();

    std::vector<QRect> dirty;
    for (Item& item : items_) {
        const bool changed = item.control->revision() > drawn_ || rescaled ||
                             (containers && insideChanged(*item.control)) ||
                             // A picture key is drawn dim while it is disabled.
                             (turned && item.widget && item.painted);
        if (changed) refresh(item, dirty);
        if (changed && accessible_) accessible_->changed(*item.control);
        if (item.widget && (changed || formChanged)) refreshWidget(item);
    }
    drawn_ = upTo;
    if (first) orderTabs();
    if (background_.isNull()) dirty.assign(1, rect());
    merge(dirty);
    lastDirty_ = QRegion();
    for (const QRect& rect : dirty) lastDirty_ += scale_.around(rect);
    if (!lastDirty_.isEmpty()) update(lastDirty_);
}

void FormView::alignColumns() {
    columns_.find(form_, scale_);
    for (Item& item : items_) item.down = columns_.shiftOf(*item.control);
}

void FormView::measure(Item& item) {
    item.reach = QRect();
    item.clip = QRectF();
    item.shown = item.painted && item.control->shown();
    if (!item.shown) return;
    const QRectF whole = item.painted->reach().translated(0, item.down);
    QRectF seen = whole;
    for (const Panel* in = item.control->container; in; in = in->container) {
        seen &= scale_.snapped(in->boxOnForm());
    }
    item.shown = !seen.isEmpty();
    if (item.shown) {
        if (seen != whole) item.clip = seen;
        item.reach = seen.toAlignedRect();
    }
}

void FormView::refresh(Item& item, std::vector<QRect>& dirty) {
    if (!item.painted) return;
    const QRect before = item.reach;
    item.painted->prepare(scale_);
    const auto index = static_cast<std::size_t>(&item - items_.data());
    if (background_.isNull()) {
        measure(item);
        return;
    }
    if (!item.live) makeLive(index);
    measure(item);
    if (!item.reach.isEmpty() && !before.contains(item.reach)) makeLiveAbove(index, item.reach);
    if (!before.isEmpty()) dirty.push_back(before);
    if (!item.reach.isEmpty() && item.reach != before) dirty.push_back(item.reach);
}

void FormView::makeLive(std::size_t index) {
    Item& item = items_[index];
    item.live = true;
    if (item.reach.isEmpty()) return;
    makeLiveAbove(index, item.reach);
    paintBackground(item.reach);
}

void FormView::makeLiveAbove(std::size_t index, const QRect& where) {
    for (std::size_t i = index + 1; i < items_.size(); ++i) {
        if (!items_[i].live && items_[i].reach.intersects(where)) makeLive(i);
    }
}

void FormView::refreshWidget(Item& item) {
    Control& control = *item.control;
    QWidget& widget = item.widget->widget();
    const QRect* const even = columns_.boxOf(control);
    const QRect box = item.widget->within(even ? *even : scale_.whole(control.boxOnForm()));
    if (widget.geometry() != box) widget.setGeometry(box);
    QRect seen = box;
    for (const Panel* in = control.container; in; in = in->container) {
        seen &= scale_.whole(in->boxOnForm());
    }
    if (seen != box) {
        widget.setMask(seen.translated(-box.topLeft()));
    } else if (!widget.mask().isEmpty()) {
        widget.clearMask();
    }
    const std::string_view accessible = control.accessibleName();
    const QString name = qText(accessible.empty() ? std::string_view(control.name()) : accessible);
    if (widget.accessibleName() != name) {
        widget.setAccessibleName(name);
        // The name of a list or a row of tabs is its selected item; the description gives its own
        // name.
        widget.setAccessibleDescription(name);
    }
    const char* tip = language_ == Language::Spanish ? control.tip.spanish : control.tip.english;
    if (widget.toolTip() != QString::fromUtf8(tip)) widget.setToolTip(QString::fromUtf8(tip));
    if (widget.isEnabled() != control.usable()) widget.setEnabled(control.usable());
    item.widget->sync();
    const bool shown = control.shown() && !seen.isEmpty();
    if (widget.isHidden() == shown) widget.setVisible(shown);
}

void FormView::paintItem(QPainter& painter, Item& item) {
    if (item.clip.isNull() && item.down == 0) {
        item.painted->paint(painter);
        return;
    }
    painter.save();
    if (!item.clip.isNull()) painter.setClipRect(item.clip, Qt::IntersectClip);
    painter.translate(0, item.down);
    item.painted->paint(painter);
    painter.restore();
}

void FormView::paintBackground(const QRect& where) {
    QPainter painter(&background_);
    painter.setClipRect(scale_.around(where));
    paintFormGround(painter, rect());
    for (Item& item : items_) {
        if (item.shown && !item.live && item.reach.intersects(where)) paintItem(painter, item);
    }
}

void FormView::renderBackground() {
    background_ = QPixmap(size() * scale_.deviceRatio());
    background_.setDevicePixelRatio(scale_.deviceRatio());
    background_.fill(Qt::black);
    paintBackground(rect());
}

void FormView::paintEvent(QPaintEvent* event) {
    ++paints_;
    QPainter painter(this);
    if (background_.isNull() || background_.size() != size() * scale_.deviceRatio())
        renderBackground();
    const QRegion& region = event->region();
    const qreal ratio = scale_.deviceRatio();
    for (const QRect& part : region) {
        const QRect whole = scale_.around(part) & rect();
        painter.drawPixmap(QRectF(whole), background_,
                           QRectF(QPointF(whole.topLeft()) * ratio, QSizeF(whole.size()) * ratio));
    }
    for (Item& item : items_) {
        if (item.live && item.shown && region.intersects(item.reach)) paintItem(painter, item);
    }
}

}  // namespace display::qt

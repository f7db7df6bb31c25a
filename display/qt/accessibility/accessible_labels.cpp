// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/accessibility/accessible_labels.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "display/qt/widgets/chart_view.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/picture_box_widget.h"
#include "display/qt/widgets/plot_widget.h"
#include "display/qt/widgets/scroll_bar_widget.h"
#include "display/qt/windows/form_view.h"
#include "display/qt/windows/rack_window.h"

namespace display::qt {

namespace {

constexpr int kPause = 500;

const Label* asLabel(const Control& control) {
    return dynamic_cast<const Label*>(&control);
}

bool isAccessible(const Control& control) {
    return asLabel(control) || (control.reading && !control.interactive());
}

bool isMeasured(const Control& control) {
    const Label* label = asLabel(control);
    return control.reading || (label && label->readout);
}

/// Whether it is the caption beside a figure that goes by the same name: the figure is told with
/// its name, so the caption would only be told twice.
bool captionsFigure(const Control& control) {
    const Label* label = asLabel(control);
    if (!label || isMeasured(control)) return false;
    return std::ranges::any_of(control.form().controls(), [&](const Control* other) {
        return other != &control && isAccessible(*other) && isMeasured(*other) && other->shown() &&
               other->accessibleName() == label->caption.get();
    });
}

/// One painted label, or another painted control with a reading.
class AccessibleLabel final : public QAccessibleInterface {
 public:
    AccessibleLabel(FormView& view, const Control& control) : view_(&view), control_(control) {}

    bool isValid() const override { return !view_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return view_ ? QAccessible::queryAccessibleInterface(view_) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::StaticText; }

    QString text(QAccessible::Text kind) const override {
        if (!view_) return {};
        if (kind == QAccessible::Name) return name();
        if (kind == QAccessible::Description) {
            return qText(control_.form().language == Language::Spanish ? control_.tip.spanish
                                                                       : control_.tip.english);
        }
        return kind == QAccessible::Value ? value() : QString();
    }

    QRect rect() const override {
        if (!view_) return {};
        const QRect box = view_->scale().whole(control_.boxOnForm());
        return {view_->mapToGlobal(box.topLeft()), box.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.readOnly = true;
        state.invisible = !view_ || !control_.shown() || saysNothing();
        return state;
    }

 private:
    /// With the value behind it: AT-SPI hands on no value of what is no slider, so a screen reader
    /// would say the name alone.
    QString name() const {
        const std::string_view name = control_.accessibleName();
        if (name.empty()) return caption();
        const QString said = value();
        return said.isEmpty() ? qText(name) : qText(name) + QStringLiteral(": ") + said;
    }
    QString value() const {
        if (!isMeasured(control_)) return {};
        return control_.reading ? QString::fromStdString(control_.reading()) : caption();
    }
    QString caption() const {
        const Label* label = asLabel(control_);
        if (!label) return {};
        // Where a path may be broken is nothing to say.
        constexpr QChar kMayBreak(0x200b);
        return qText(label->caption.get()).remove(kMayBreak);
    }
    /// A message that does not stand, told by its name alone, would be taken for one that does.
    bool saysNothing() const {
        return isMeasured(control_) ? value().isEmpty()
                                    : caption().isEmpty() || captionsFigure(control_);
    }

    QPointer<FormView> view_;
    const Control& control_;
};

/// A form: its widgets, then its painted labels.
class AccessibleForm final : public QAccessibleWidget {
 public:
    explicit AccessibleForm(FormView& view) : QAccessibleWidget(&view, QAccessible::Grouping) {}

    FormView& view() const { return static_cast<FormView&>(*widget()); }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? name() : QAccessibleWidget::text(kind);
    }
    int childCount() const override {
        return QAccessibleWidget::childCount() + view().accessible().count();
    }
    QAccessibleInterface* child(int index) const override {
        const int widgets = QAccessibleWidget::childCount();
        return index < widgets ? QAccessibleWidget::child(index)
                               : view().accessible().at(index - widgets);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const int label = view().accessible().indexOf(child);
        return label < 0 ? QAccessibleWidget::indexOfChild(child)
                         : QAccessibleWidget::childCount() + label;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < view().accessible().count(); ++i) {
            QAccessibleInterface* label = view().accessible().at(i);
            if (!label->state().invisible && label->rect().contains(x, y)) return label;
        }
        return QAccessibleWidget::childAt(x, y);
    }

 private:
    /// The panels of the rack all have the title of the program; their headings tell them apart.
    QString name() const {
        const Form& form = view().form();
        const bool inRack = dynamic_cast<const RackWindow*>(view().window());
        const auto* heading = dynamic_cast<const Label*>(inRack ? form.find("Heading") : nullptr);
        return heading ? qText(heading->caption.get()) : spokenName(form);
    }
};

/// One of several options. Qt takes a radio button for a check box when its group is not Qt's own.
class AccessibleOption final : public QAccessibleWidget {
 public:
    explicit AccessibleOption(OptionWidget& option)
        : QAccessibleWidget(&option, QAccessible::RadioButton) {}

    QString text(QAccessible::Text kind) const override {
        const QString said = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Name && said.isEmpty()) return option().text();
        // Its own name again.
        if (kind == QAccessible::Description && said == option().accessibleName()) return {};
        return said;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = option().isChecked();
        return state;
    }
    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (option().isEnabled()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override {
        if (name == pressAction()) {
            option().click();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

 private:
    OptionWidget& option() const { return static_cast<OptionWidget&>(*widget()); }
};

/// What stands at the mark of a drawing, as an item of it that can have the focus.
class AccessibleMark final : public QAccessibleInterface {
 public:
    explicit AccessibleMark(QWidget& drawing) : drawing_(&drawing) {}

    bool isValid() const override { return !drawing_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return drawing_ ? drawing_->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return drawing_ ? QAccessible::queryAccessibleInterface(drawing_) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return drawing_ && kind == QAccessible::Name ? drawing_->accessibleDescription()
                                                     : QString();
    }
    QRect rect() const override {
        return drawing_ ? QRect(drawing_->mapToGlobal(QPoint()), drawing_->size()) : QRect();
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.focused = stands && drawing_ && drawing_->hasFocus();
        state.invisible = !stands || !drawing_ || !drawing_->isVisible();
        return state;
    }

    bool stands = false;  ///< it is the one that was told last

 private:
    QPointer<QWidget> drawing_;
};

/// A drawing. Its description is what stands at its mark, and its own name again before there is
/// one. A screen reader says the item that gets the focus, but not one that has it and changes: so
/// there are two, and a mark that moves goes from one to the other.
class AccessibleDrawing final : public QAccessibleWidget {
 public:
    explicit AccessibleDrawing(QWidget& drawing) : QAccessibleWidget(&drawing, QAccessible::Chart) {
        for (std::size_t i = 0; i < marks_.size(); ++i) {
            // Qt owns a registered interface until it is deleted by its id.
            // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
            marks_[i] = new AccessibleMark(drawing);
            ids_[i] = QAccessible::registerAccessibleInterface(marks_[i]);
        }
    }
    ~AccessibleDrawing() override {
        for (const QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
    }
    AccessibleDrawing(const AccessibleDrawing&) = delete;
    AccessibleDrawing& operator=(const AccessibleDrawing&) = delete;

    QString text(QAccessible::Text kind) const override {
        const QString said = QAccessibleWidget::text(kind);
        const bool again = kind == QAccessible::Description && said == widget()->accessibleName();
        return again ? QString() : said;
    }
    int childCount() const override { return static_cast<int>(marks_.size()); }
    QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= childCount() ? nullptr
                                                  : marks_[static_cast<std::size_t>(index)];
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (int i = 0; i < childCount(); ++i) {
            if (this->child(i) == child) return i;
        }
        return -1;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }

    void tellMark() {
        std::swap(marks_[0], marks_[1]);
        marks_[0]->stands = true;
        marks_[1]->stands = false;
        QAccessibleEvent event(marks_[0], QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }

 private:
    std::array<AccessibleMark*, 2> marks_{};  ///< the one that stands first
    std::array<QAccessible::Id, 2> ids_{};
};

/// A bar whose position stands for a number of its own, as the frequency that it tunes: that number
/// is told, not the position. Its keys move it.
class AccessibleBar final : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    explicit AccessibleBar(ScrollBarWidget& bar)
        : QAccessibleWidget(&bar, QAccessible::Slider), bar_(bar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override {
        return QString::fromStdString(bar_.bar().reading()).toDouble();
    }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return {}; }
    QVariant minimumValue() const override { return {}; }
    /// By which a screen reader knows how many decimals to say.
    QVariant minimumStepSize() const override { return 0.01; }

 private:
    ScrollBarWidget& bar_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* view = dynamic_cast<FormView*>(object)) return new AccessibleForm(*view);
    if (auto* option = dynamic_cast<OptionWidget*>(object)) return new AccessibleOption(*option);
    const bool draws = dynamic_cast<ChartView*>(object) || dynamic_cast<PlotWidget*>(object) ||
                       dynamic_cast<PictureBoxWidget*>(object);
    if (draws) return new AccessibleDrawing(*static_cast<QWidget*>(object));
    auto* bar = dynamic_cast<ScrollBarWidget*>(object);
    return bar && bar->bar().reading ? new AccessibleBar(*bar) : nullptr;
}

}  // namespace

QString spokenName(const Form& form) {
    if (!form.caption.empty()) return qText(form.caption.get());
    for (const Control* control : form.controls()) {
        const Label* label = asLabel(*control);
        if (label && label->shown() && !label->caption.empty()) return qText(label->caption.get());
    }
    return QString::fromStdString(form.name());
}

void tellMark(QWidget& drawing) {
    QAccessibleInterface* its = QAccessible::queryAccessibleInterface(&drawing);
    if (auto* told = dynamic_cast<AccessibleDrawing*>(its)) told->tellMark();
}

void AccessibleLabels::install() {
    QAccessible::installFactory(makeAccessible);
}

AccessibleLabels::AccessibleLabels(FormView& view) {
    for (const Control* control : view.form().controls()) {
        if (!isAccessible(*control)) continue;
        controls_.push_back(control);
        // Qt owns a registered interface until it is deleted by its id.
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        ids_.push_back(
            QAccessible::registerAccessibleInterface(new AccessibleLabel(view, *control)));
    }
    timer_.setSingleShot(true);
    timer_.setInterval(kPause);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { announce(); });
}

AccessibleLabels::~AccessibleLabels() {
    for (const QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleLabels::at(int index) const {
    return index < 0 || index >= count()
               ? nullptr
               : QAccessible::accessibleInterface(ids_[static_cast<std::size_t>(index)]);
}

int AccessibleLabels::indexOf(const QAccessibleInterface* child) const {
    for (int i = 0; i < count(); ++i) {
        if (at(i) == child) return i;
    }
    return -1;
}

void AccessibleLabels::changed(const Control& control) {
    auto found = std::ranges::find(controls_, &control);
    // The lines of a segment digit have no reading; the panel around them has.
    if (found == controls_.end()) found = std::ranges::find(controls_, control.container.get());
    if (found == controls_.end()) return;
    toAnnounce_.insert(static_cast<int>(found - controls_.begin()));
    if (!timer_.isActive()) timer_.start();
}

void AccessibleLabels::announce() {
    ++announcements_;
    for (const int index : toAnnounce_) {
        QAccessibleInterface* label = at(index);
        if (!label || label->state().invisible) continue;
        if (isMeasured(*controls_[static_cast<std::size_t>(index)])) {
            QAccessibleValueChangeEvent event(label, label->text(QAccessible::Value));
            QAccessible::updateAccessibility(&event);
        }
        QAccessibleEvent event(label, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&event);
    }
    toAnnounce_.clear();
}

}  // namespace display::qt

// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/help_page.h"

#include <QImage>
#include <QScrollBar>
#include <QString>
#include <QTextDocument>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/scale.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

namespace {

/// Lines of about eighty letters are read best.
constexpr qreal kColumnInLetters = 46;
constexpr qreal kMarginInLetters = 1.8;

QString htmlColour(QRgb colour) {
    return QColor(colour).name();
}

constexpr int kRing = 2;
/// The mark under a place that was found.
constexpr QRgb kFoundGround = 0xff5a4410;

}  // namespace

HelpPage::HelpPage(const HelpBook& book, qreal textPixels, QWidget* parent)
    : QTextBrowser(parent), book_(book), textPixels_(textPixels) {
    setReadOnly(true);
    setOpenExternalLinks(false);
    setFrameShape(QFrame::NoFrame);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    document()->setDocumentMargin(0);
}

qreal HelpPage::pixels() const {
    return textPixels_ * std::pow(1.1, steps_);
}

int HelpPage::column() const {
    const int margin = qRound(kMarginInLetters * pixels());
    return std::min(width() - 2 * margin - verticalScrollBar()->sizeHint().width(),
                    qRound(kColumnInLetters * pixels()));
}

/// Qt's rich text knows this part of CSS (richtext-html-subset of its documentation).
QString HelpPage::style() const {
    const qreal px = pixels();
    const auto size = [px](qreal times) { return QString::number(qRound(px * times)) + "px"; };
    return QStringLiteral(
               "body, p, li, td, th { color: %1; line-height: 140%; } td, th { line-height: 115%; "
               "} p.picture { line-height: 100%; } ")
               .arg(htmlColour(kText)) +
           QStringLiteral("p { margin-top: 0; margin-bottom: %1; } ").arg(size(0.7)) +
           QStringLiteral("li { margin-bottom: %1; } ").arg(size(0.25)) +
           QStringLiteral(
               "h1 { font-size: %1; color: #ffffff; margin-top: %2; margin-bottom: %3; "
               "} ")
               .arg(size(1.6), size(0.4), size(0.8)) +
           QStringLiteral("h2 { font-size: %1; color: %4; margin-top: %2; margin-bottom: %3; } ")
               .arg(size(1.15), size(1.4), size(0.4), htmlColour(kAmber)) +
           QStringLiteral("h3 { font-size: %1; color: %4; margin-top: %2; margin-bottom: %3; } ")
               .arg(size(1.0), size(1.0), size(0.3), htmlColour(kKeyText)) +
           QStringLiteral("a { color: %1; text-decoration: none; } ")
               .arg(palette().color(QPalette::Link).name()) +
           QStringLiteral(
               "table { border-collapse: collapse; margin-top: %1; margin-bottom: %2; } ")
               .arg(size(0.3), size(1.0)) +
           QStringLiteral(
               "th { background-color: %1; color: %2; font-weight: normal; "
               "text-align: left; padding: %3; } ")
               .arg(htmlColour(kFaceplateTop), htmlColour(0xffa4acb8), size(0.4)) +
           QStringLiteral("td { padding: %1; border-bottom: 1px solid %2; } ")
               .arg(size(0.4), htmlColour(kFaceplateEdge)) +
           QStringLiteral("code, pre { font-family: '%1'; color: %2; } ")
               .arg(Fonts::get().fixedFont(px).family(), htmlColour(0xff00ffff)) +
           QStringLiteral("pre { background-color: %1; margin-bottom: %2; }")
               .arg(htmlColour(kWellTop), size(0.8));
}

bool HelpPage::showPage(const QString& name, Language language) {
    if (book_.page(name.toStdString(), language).empty()) return false;
    page_ = name;
    language_ = language;
    forgetFound();
    setPage();
    verticalScrollBar()->setValue(0);
    return true;
}

void HelpPage::setPage() {
    shownColumn_ = column();
    const int margin = qRound(kMarginInLetters * pixels());
    const int beside = verticalScrollBar()->sizeHint().width();
    setViewportMargins(margin, margin / 2, width() - shownColumn_ - margin - beside, margin / 2);
    document()->setDefaultFont(Fonts::get().font(pixels(), Weight::Normal));
    document()->setDefaultStyleSheet(style());
    // The room between lines of letters would stand below a picture, too.
    setHtml(qText(book_.page(page_.toStdString(), language_))
                .replace(QLatin1String("<p><img"), QLatin1String("<p class=\"picture\"><img")));
}

void HelpPage::zoom(int steps) {
    steps_ = steps == 0 ? 0 : std::clamp(steps_ + steps, -4, 8);
    setPageInSight();
}

void HelpPage::speak(Language language) {
    language_ = language;
    forgetFound();
    setPageInSight();
}

/// Where one reads stays in sight.
void HelpPage::setPageInSight() {
    const QScrollBar* bar = verticalScrollBar();
    const double share = bar->maximum() > 0 ? double(bar->value()) / bar->maximum() : 0;
    setPage();
    verticalScrollBar()->setValue(qRound(share * verticalScrollBar()->maximum()));
}

void HelpPage::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (!page_.isEmpty() && column() != shownColumn_) setPageInSight();
}

void HelpPage::doSetSource(const QUrl& url, QTextDocument::ResourceType) {
    const QString target = url.toString();
    if (target.endsWith(".md") && onLink) onLink(target.chopped(3));
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) return {};
    const std::string bytes = book_.picture(name.toString().toStdString());
    QImage picture = QImage::fromData(QByteArray::fromStdString(bytes));
    if (picture.isNull()) return {};
    const qreal ratio = devicePixelRatioF();
    // The ring of the focus stands around the page.
    const int widest = qRound((column() - 2 * kRing) * ratio);
    const int wanted = qRound(picture.width() * ratio * pixels() / textPixels_);
    const int width = std::min(widest, wanted);
    if (width != picture.width()) picture = picture.scaledToWidth(width, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void HelpPage::forgetFound() {
    foundWords_.clear();
    foundAt_ = -1;
    setExtraSelections({});
}

HelpPage::Found HelpPage::find(const QString& words, bool backwards) {
    if (words.isEmpty()) {
        forgetFound();
        return {};
    }
    std::vector<QTextCursor> places;
    for (QTextCursor at = document()->find(words); !at.isNull(); at = document()->find(words, at)) {
        places.push_back(at);
    }
    const int count = static_cast<int>(places.size());
    const bool again = words == foundWords_;
    foundWords_ = words;
    if (count == 0) {
        foundAt_ = -1;
        setExtraSelections({});
        return {};
    }
    if (!again || foundAt_ < 0) {
        foundAt_ = backwards ? count - 1 : 0;
    } else {
        foundAt_ = (foundAt_ + (backwards ? count - 1 : 1)) % count;
    }
    QList<ExtraSelection> marks;
    for (const QTextCursor& place : places) {
        ExtraSelection mark;
        mark.cursor = place;
        mark.format.setBackground(QColor(kFoundGround));
        marks.push_back(mark);
    }
    setTextCursor(places[static_cast<std::size_t>(foundAt_)]);
    ensureCursorVisible();
    setExtraSelections(marks);
    return {count, foundAt_ + 1};
}

}  // namespace display::qt

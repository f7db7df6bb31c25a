// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "display/form.h"
#include "display/headless/headless_desktop.h"

namespace display {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(PageDocument, MarksKeepThePenAndTheFontThatTheyWereMadeWith) {
    PageDocument document;
    document.pen = {kRed, 70, PenStyle::Solid};
    document.line({1, 2}, {3, 4});
    document.pen = {kGreen, 8, PenStyle::Dotted};
    document.rectangle({5, 6}, {7, 8});
    document.font = {16, Weight::Bold, Pitch::Fixed, kRed};
    document.text({9, 10}, "one");
    document.font = {};
    document.turnedText({11, 12}, 900, "two");
    ASSERT_THAT(document.pages(), SizeIs(1));
    const auto& marks = document.pages()[0].marks;
    ASSERT_THAT(marks, SizeIs(4));
    EXPECT_EQ(marks[0].pen, (PagePen{kRed, 70, PenStyle::Solid}));
    EXPECT_EQ(marks[0].to, (PagePoint{3, 4}));
    EXPECT_EQ(marks[1].pen, (PagePen{kGreen, 8, PenStyle::Dotted}));
    EXPECT_EQ(marks[2].font, (PageFont{16, Weight::Bold, Pitch::Fixed, kRed}));
    EXPECT_EQ(marks[2].turn, 0);
    EXPECT_EQ(marks[3].font, PageFont{});
    EXPECT_EQ(marks[3].turn, 900);
}

TEST(PageDocument, EachPageHasTheMarginsOfItsBeginning) {
    PageDocument document;
    document.margins = {720, 720, 720, 720};
    document.newPage();
    document.margins = {1, 2, 3, 4};
    document.picture("InkTeskel", {550, -360}, 2500, 400);
    document.newPage();
    document.text({0, 0}, "next");
    ASSERT_THAT(document.pages(), SizeIs(2));
    EXPECT_EQ(document.pages()[0].margins, (PageMargins{720, 720, 720, 720}));
    EXPECT_EQ(document.pages()[1].margins, (PageMargins{1, 2, 3, 4}));
    ASSERT_THAT(document.pages()[0].marks, SizeIs(1));
    EXPECT_EQ(document.pages()[0].marks[0].to, (PagePoint{3050, 40}));
    EXPECT_THAT(document.pages()[1].marks, SizeIs(1));
}

TEST(PagePoints, AreThePairsOfATextOfCoordinates) {
    EXPECT_THAT(pagePoints("550 4000 971 -12.5 "),
                ElementsAre(PagePoint{550, 4000}, PagePoint{971, -12.5f}));
    EXPECT_THAT(pagePoints("1 2 3"), ElementsAre(PagePoint{1, 2}));
    EXPECT_THAT(pagePoints("1 2 x 4"), ElementsAre(PagePoint{1, 2}));
    EXPECT_THAT(pagePoints(""), IsEmpty());
}

class PreviewForm final : public Form {
 public:
    explicit PreviewForm(Desktop& desktop) : Form(desktop, "PreviewForm") {}
    PagePreview ViewPro1{*this, "ViewPro1"};

 protected:
    void layOut() override { place(ViewPro1, {0, 0, 100, 100}); }
};

TEST(PagePreview, ShowsAnotherDocumentAndIsEmptyAfterALoad) {
    HeadlessDesktop desktop;
    PreviewForm form(desktop);
    form.load();
    EXPECT_THAT(form.ViewPro1.document().pages(), IsEmpty());
    EXPECT_EQ(form.ViewPro1.zoom.get(), 100);
    const auto before = form.clock();
    const int shown = form.ViewPro1.shownDocuments();
    PageDocument document;
    document.text({0, 0}, "a page");
    form.ViewPro1.show(document);
    EXPECT_GT(form.clock(), before);
    EXPECT_EQ(form.ViewPro1.shownDocuments(), shown + 1);
    EXPECT_THAT(form.ViewPro1.document().pages(), SizeIs(1));
    form.unload();
    form.load();
    EXPECT_THAT(form.ViewPro1.document().pages(), IsEmpty());
}

}  // namespace
}  // namespace display

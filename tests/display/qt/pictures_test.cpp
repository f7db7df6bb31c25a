// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/pictures.h"

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "tests/display/qt/qt_bench.h"

namespace display::qt {

namespace {

QImage painted(std::string_view name, const QString& caption = {}) {
    QImage image(80, 40, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paintPicture(painter, name, QRectF(0, 0, 80, 40), {caption, 1});
    return image;
}

/// The picture names that the forms' sources contain.
std::set<std::string> namesInSources() {
    const std::regex assigned(R"re(picture\s*=\s*"([^"]+)")re");
    const std::regex bound(R"re(bindKey\([^,]+,\s*"([^"]+)",\s*"([^"]+)")re");
    std::set<std::string> names;
    for (const char* folder : {"startup", "panels", "tuner", "analyses", "spectrum", "analyzer"}) {
        const std::filesystem::path top = std::filesystem::path(HMONITOR_SOURCE_DIR) / folder;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
            if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
            std::stringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            const std::string source = text.str();
            for (std::sregex_iterator i(source.begin(), source.end(), assigned), end; i != end; ++i)
                names.insert((*i)[1]);
            for (std::sregex_iterator i(source.begin(), source.end(), bound), end; i != end; ++i) {
                names.insert((*i)[1]);
                names.insert((*i)[2]);
            }
        }
    }
    return names;
}

}  // namespace

class Pictures : public QtBench {};

TEST_F(Pictures, EveryNameThatAFormUses_HasADrawing) {
    const std::set<std::string> used = namesInSources();
    ASSERT_GE(used.size(), 10u) << "the search found too few: it no longer reads the sources";
    const auto known = pictureNames();
    for (const std::string& name : used) {
        EXPECT_NE(std::ranges::find(known, name), known.end()) << name;
    }
}

TEST_F(Pictures, EveryDrawing_PaintsSomething) {
    QImage blank(80, 40, QImage::Format_RGB32);
    blank.fill(Qt::magenta);
    for (const std::string_view name : pictureNames()) {
        // A sign shows only the words that it is given.
        EXPECT_NE(painted(name, name == "Sign" ? "DEMO" : ""), blank) << name;
    }
}

TEST_F(Pictures, UnknownName_PaintsNothing) {
    QImage blank(80, 40, QImage::Format_RGB32);
    blank.fill(Qt::magenta);
    EXPECT_EQ(painted("nosuch"), blank);
}

TEST_F(Pictures, PressedAndReleasedKey_LookDifferent) {
    EXPECT_NE(painted("PeakN"), painted("PeakA"));
    EXPECT_NE(painted("OffN"), painted("OffA"));
    EXPECT_NE(painted("multyon"), painted("multyoff"));
}

TEST_F(Pictures, CaptionReplacesTheKeysOwnWord) {
    EXPECT_NE(painted("MinN"), painted("MinN", "PRINT"));
    EXPECT_EQ(painted("MinN"), painted("MinN", "FOLD"));
}

}  // namespace display::qt

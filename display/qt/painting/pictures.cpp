// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/pictures.h"

#include <unordered_map>

#include "display/qt/painting/key_pictures.h"
#include "display/qt/painting/mark_pictures.h"

namespace display::qt {

namespace {

const std::unordered_map<std::string_view, PicturePainter>& table() {
    static const auto all = [] {
        std::unordered_map<std::string_view, PicturePainter> names;
        for (const auto& picture : keyPictures()) names.emplace(picture.name, picture.paint);
        for (const auto& picture : markPictures()) names.emplace(picture.name, picture.paint);
        return names;
    }();
    return all;
}

}  // namespace

bool paintPicture(QPainter& painter, std::string_view name, const QRectF& box,
                  const PictureLook& look) {
    const auto found = table().find(name);
    if (found == table().end()) return false;
    found->second(painter, box, look);
    return true;
}

std::vector<std::string_view> pictureNames() {
    std::vector<std::string_view> names;
    for (const auto& [name, paint] : table()) names.push_back(name);
    return names;
}

}  // namespace display::qt

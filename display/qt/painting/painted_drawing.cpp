// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/painting/drawing_image.h"

#include <cstdint>
#include <memory>
#include <vector>

#include "display/qt/painting/painted.h"

namespace display::qt {

namespace {

/// Keeps the marks of a picture box as an image: only marks that are new since the last frame are
/// painted, unless marks were dropped.
class PaintedDrawing final : public Painted {
 public:
    explicit PaintedDrawing(PictureBox& box) : box_(box) {}

    void prepare(const Scale& scale) override {
        const QRectF place = scale.snapped(box_.boxOnForm());
        const qreal pxPerUnit = scale.px(box_.drawing.unit());
        const bool anew = place.size() != place_.size() || pxPerUnit != pxPerUnit_ ||
                          ratio_ != scale.deviceRatio() || box_.drawing.rebuilt() != rebuilt_;
        place_ = place;
        pxPerUnit_ = pxPerUnit;
        ratio_ = scale.deviceRatio();
        if (anew) {
            rebuilt_ = box_.drawing.rebuilt();
            newest_ = 0;
            image_.begin((place_.size() * ratio_).toSize(), scale, box_.drawing.unit());
        }
        addMarks();
    }

    QRectF reach() const override { return place_; }

    void paint(QPainter& painter) override { image_.paint(painter, place_.topLeft()); }

 private:
    void addMarks() {
        const std::vector<Mark>& marks = box_.drawing.marks();
        if (marks.empty() || marks.back().number <= newest_) return;
        // The new marks are at the end of the list: search it backwards for the first.
        std::size_t first = marks.size();
        while (first > 0 && marks[first - 1].number > newest_) --first;
        image_.add(marks, first);
        newest_ = marks.back().number;
    }

    PictureBox& box_;
    DrawingImage image_;
    QRectF place_;
    qreal pxPerUnit_ = 0, ratio_ = 0;
    std::uint64_t rebuilt_ = 0, newest_ = 0;
};

}  // namespace

std::unique_ptr<Painted> paintedDrawing(PictureBox& box) {
    return std::make_unique<PaintedDrawing>(box);
}

}  // namespace display::qt

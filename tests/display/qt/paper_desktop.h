// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPrinter>
#include <memory>

#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

/// A desktop whose printer writes its pages to a file.
class PaperDesktop final : public QtDesktop {
 public:
    PaperDesktop(int& argc, QString path) : QtDesktop(argc, nullptr), path_(std::move(path)) {}

 protected:
    std::unique_ptr<QPrinter> readyPrinter(std::string&) const override {
        auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setOutputFileName(path_);
        return printer;
    }

 private:
    QString path_;
};

}  // namespace display::qt

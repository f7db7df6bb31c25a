// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "display/desktop.h"

// The messages of the analyzer. They have no English form.
namespace hmonitor::analyzer_words {

inline const display::MessageBox kStopFirstToChoose{
    "Atención!",
    "Para poder elegir otro Archivo de Medición hay que primero detener el Analizador (botón verde "
    "con símbolo de 'pausa')",
    display::BoxIcon::Information};

/// Tool tip of the keys that add and that edit a session: the text is the same.
inline const display::MessageBox kStopFirstToBegin{
    "Atención!",
    "Para poder comenzar un nuevo Archivo de Medición hay que primero detener el Analizador (botón "
    "verde con símbolo de 'pausa')",
    display::BoxIcon::Information};

inline display::MessageBox deleteQuestion(const std::string& fileName) {
    return {"ATENCION!",
            "Está seguro que desea borrar la sesión de mediciones '" + fileName +
                "' con todas las mediciones que ella incluye?",
            display::BoxIcon::None};
}

}  // namespace hmonitor::analyzer_words

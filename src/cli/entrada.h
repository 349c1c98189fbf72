#pragma once
// The input of the declaration commands: {"ruc": "...", "casillas": {"CCC": "valor", ...}}.
#include "form931/guion.h"

#include <QByteArray>

// Largest input taken, a file or one line of a batch: 1 MiB.
inline constexpr qsizetype kTopeEntrada = 1024 * 1024;

// Reads one declaration. Throws ErrorEntrada, with the one line to print, for an input over
// kTopeEntrada, JSON that is not well formed or not an object, an unknown key, a RUC that is
// not eleven digits given as text, "casillas" that is not an object, an unknown casilla
// code, a value that is neither text nor an integer JSON number (an integer is taken as its
// digits, exactly), and a casilla 002 other than the RUC. Whether a value fits its box is
// the box's own decision, taken when the value is typed (reproducirEntrada).
EntradaDeclaracion leerEntrada(const QByteArray& json);

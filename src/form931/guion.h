#pragma once
// A declaration given as data (the input of the `f931` commands) and its replay on the form
// as a user would type it, without a screen.
//
// Input: {"ruc": "...", "casillas": {"CCC": "valor", ...}} with three-digit casilla codes as
// stored in DET (the boxes, and the items without a box: 028, 056, 813, 200, 809, 810, 860,
// 811, 812, 601, 602, 603, 804, 224, 605, 606, 607, 608, 611, 612, 613, 815 to 818).
#include "form931/frm931.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <stdexcept>

class RespondedorGuion;

// Bad input: the message is the one line the command prints on standard error.
struct ErrorEntrada : std::runtime_error {
    explicit ErrorEntrada(const QString& mensaje) : std::runtime_error(mensaje.toStdString()), texto(mensaje) {}
    QString texto;
};

struct EntradaDeclaracion {
    QString ruc;
    QMap<QString, QString> casillas;   // by three-digit code
};

// Whether a code may stand in the input: a box, an item without a box, or an item the form
// derives itself (002, 007, 801, 609, 662, 721: accepted so that a stored declaration
// replays, never typed; `derivado` tells them).
bool codigoDeEntrada(const QString& codigo, bool* derivado = nullptr);
// A value of the input as a message quotes it: between double quotes, control characters
// as \uXXXX, cut after 40 characters, so that the message stays one line.
QString citarEntrada(const QString& valor);

// The form's surroundings without a screen: the annex takes the parts given in the input, the
// geographic picker returns the code given, the other dialogs do nothing.
class EntornoSinPantalla : public EntornoFrm931 {
public:
    void abrirAnexo477(Frm931& frm, int nCasilla) override;
    void abrirUbigeo(const QString& caption) override;
    QMap<int, QPair<QString, QString>> partesAnexo;    // 473 -> (650, 651), 477 -> (432, 433)
    QString ubigeo;                                     // code the picker is to accept
    QString casillaUbigeo;                              // its casilla, for the refusal
};

// Opens a new declaration as "&Nueva" does and replays the input in the users' order.
// Throws ErrorEntrada for an unknown code, a taxpayer not listed in CmbRuc, a value for a box
// that is locked when its turn comes, 473 or 477 without their parts, and a value the box
// would not take as it stands: a key its key filter drops or changes, more characters than
// its length while it has the focus, an answer that is not one of its codes, a date that is
// not "yyyymmdd" or "dd/mm/yyyy", a geographic code the picker does not offer. Input is
// typed exactly or refused, never altered.
void reproducirEntrada(Frm931& frm, EntornoSinPantalla& entorno, const EntradaDeclaracion& entrada);

// The `calcular` output: periodo, tasa, sistema, presentacion, uit, casillas, mensajes.
QJsonObject salidaCalcular(const Frm931& frm, const RespondedorGuion& respondedor);

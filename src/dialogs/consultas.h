#pragma once
// The read-only catalogue lookups of the "&Consultas" menu, as presentation models: the update
// factors (catalogue "975"), banks, countries and UIT by G().giOpcion, and the fixed table of
// rates. Each Form_Load reads its rows afresh (catalogues aren't cached) and leaves the texts the
// grid shows, already formatted.
#include <QString>
#include <QStringList>
#include <QVector>

struct FilaConsulta {
    QString codigo;     // first column
    QString descrip;    // second column
    bool operator==(const FilaConsulta&) const = default;
};

// "Factores de Actualización": one row a factor, period as month/year, in the table's order.
class FrmConsFac {
public:
    QString Caption = QStringLiteral("Factores de Actualización");
    QStringList columnas = {QStringLiteral("Mes"), QStringLiteral("Factor")};
    QVector<FilaConsulta> filas;
    bool grdBancosEnabled = true;   // an empty catalogue disables the grid
    // What the window says in place of the grid when the catalogue holds no factor; empty
    // while there are rows.
    QString lblVacio;

    // Throws ErrorVB when the catalogue can't be read.
    void Form_Load();
};

// Banks (giOpcion 1), countries (2) or UIT (3); any other mode keeps the default caption and
// shows nothing.
class FrmConsultas {
public:
    QString Caption = QStringLiteral("Consultas");
    QStringList columnas = {QStringLiteral("Código"), QStringLiteral("Descripción")};
    QVector<FilaConsulta> filas;
    bool grdBancosEnabled = true;

    // Reads G().giOpcion. Throws ErrorVB when the catalogue can't be read.
    void Form_Load();
};

// "Tasas Vigentes": a fixed table, not read from the database and not tied to the rates the
// declaration applies.
class FrmConsTasas {
public:
    QString Caption = QStringLiteral("Tasas Vigentes");
    QString Command1Caption = QStringLiteral("&Salir");
    QStringList titulos = {QStringLiteral("Tipo de Contribuyente"), QStringLiteral("Tasa")};
    static const QVector<FilaConsulta>& tasas();   // taxpayer type, rate
};

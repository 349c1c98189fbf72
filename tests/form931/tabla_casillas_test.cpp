// The table of boxes against itself and against the window that is built from it: a row with a
// wrong kind, picture, frame or report label would show, store, export or print a box wrong.
#include "form931/casillas.h"
#include "form931/frm931.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QStringList>

namespace {

bool esCaja(const DefCasilla& d) { return existeCasilla(d.numero); }

// One line per fault of a row, "" when the row is sound.
QStringList faltas(const DefCasilla& d)
{
    QStringList f;
    const bool importe = d.clase == ClaseDato::Importe;
    const bool portador = qstrcmp(d.marco, "portadores") == 0;
    if (esCaja(d)) {
        // The picture follows the kind of value: amounts show figures, the rest text.
        if ((d.presentacion == Presentacion::Texto) == importe)
            f << QStringLiteral("presentación y clase no concuerdan");
        if ((d.tipo == TipoCasilla::Texto) == importe)
            f << QStringLiteral("tipo y clase no concuerdan");
        if (d.presentacion == Presentacion::Totales && d.tipo != TipoCasilla::Calculada)
            f << QStringLiteral("un total que no se calcula");
        if (!*d.marco)
            f << QStringLiteral("casilla sin marco");
        if (d.largo <= 0)
            f << QStringLiteral("casilla sin largo");
        // A computed box is never typed, so never exported as typed (113 only by agreement).
        if (d.tipo == TipoCasilla::Calculada && d.exportacion != Exportacion::No && d.exportacion != Exportacion::SiConvenio)
            f << QStringLiteral("se exporta una casilla calculada");
        if (d.tipo == TipoCasilla::Entrada && d.exportacion != Exportacion::Digitos)
            f << QStringLiteral("una casilla de entrada no se exporta en dígitos");
        if (esAsistida(d.numero) && partesDelAnexo(d.numero).size() != 2)
            f << QStringLiteral("casilla asistida sin sus dos partes");
        if (esAsistida(d.numero) && d.exportacion != Exportacion::Partes)
            f << QStringLiteral("casilla asistida que no se exporta por sus partes");
        // The carriers of the annex print in the annex, the rest in their block.
        if (importe && !portador && d.numero != 610 && d.bloque == BloqueInforme::No)
            f << QStringLiteral("importe que no se imprime");
    } else {
        if (*d.marco || d.bloque != BloqueInforme::No)
            f << QStringLiteral("un dato sin casilla con lugar en la ventana o el informe");
        if (d.tipo == TipoCasilla::SinCaja && (!*d.control || d.exportacion == Exportacion::No))
            f << QStringLiteral("un dato que se teclea sin control o sin exportar");
        if (d.tipo != TipoCasilla::SinCaja && d.exportacion != Exportacion::No)
            f << QStringLiteral("se exporta un dato que no se teclea");
    }
    if (d.clase == ClaseDato::Fecha && d.grabacion != Grabacion::Texto)
        f << QStringLiteral("una fecha que se graba como cifra");
    if ((d.bloque != BloqueInforme::No) != (d.etiquetaInforme != nullptr))
        f << QStringLiteral("bloque del informe y etiqueta no concuerdan");
    return f;
}

TEST(TablaCasillas, CadaFilaEsCoherente)
{
    QSet<int> numeros;
    QSet<QString> lugares;
    for (const DefCasilla* d : filasCasillas()) {
        const QString n = QString::number(d->numero);
        EXPECT_FALSE(numeros.contains(d->numero)) << "fila repetida " << n.toStdString();
        numeros.insert(d->numero);
        const QStringList f = faltas(*d);
        EXPECT_TRUE(f.isEmpty()) << n.toStdString() << ": " << f.join(QStringLiteral("; ")).toStdString();
        if (esCaja(*d)) {
            const QString lugar = QStringLiteral("%1 %2 %3").arg(QLatin1String(d->marco)).arg(d->columna).arg(d->fila);
            EXPECT_FALSE(lugares.contains(lugar)) << n.toStdString() << " comparte su lugar " << lugar.toStdString();
            lugares.insert(lugar);
        }
    }
    EXPECT_EQ(ordenCasillas().size(), 109);
}

// Every box shown has its stop in the window's order, on a page; the carriers have none.
TEST(TablaCasillas, CadaCasillaMostradaTieneSuParada)
{
    const QStringList& orden = Frm931::ordenTabulacion();
    for (int n : ordenCasillas()) {
        const bool portador = qstrcmp(defCasilla(n)->marco, "portadores") == 0;
        EXPECT_EQ(orden.count(Frm931::nombreCasilla(n)), portador ? 0 : 1) << n;
        if (!portador) {
            EXPECT_GE(Frm931::ubicacion(Frm931::nombreCasilla(n)).paginaSSTab1, 0) << n;
        }
    }
}

}  // namespace

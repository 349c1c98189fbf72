#pragma once
// Process-wide values through which the windows hand data to one another. They keep their
// names; every piece of code reaches them through G(), and each test resets them.
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

class cUtilQVL;
class Frm931;

struct Globales {
    // Settings and folders (settings reader). Paths use "/"; gsPathSys ends with "/".
    QString gsPathSys, gsPathTemporal, gsPathTmp, gsPathRpt, gsPathBmp;
    QString gsVersionSys, gsMenuSys, gsBaseDatos;
    QString gsUsuario = QStringLiteral(" ");

    // The one connection (Qt Sql connection name; empty when closed) and the helper object.
    QString gdbBase;
    cUtilQVL* gobjUtil = nullptr;

    // Declaration in hand.
    QString gsFormulario = QStringLiteral("0931");
    QString gsPeriodo, gsPeriodoSel;
    qint16 giOpcion = 0;
    bool gbEnviada = false, gbImpEnviada = false;
    QString gsRuc, gsNorden, gsCorrel, gsControl;
    QString gsSql;                 // scratch buffer
    QString gsArchMens;
    Frm931* gfrmDeclaracion = nullptr;

    // Declaration form.
    bool gbCargando = false;
    QString gsCas481, gsCas483;
    qint16 giCasillaExcl = 0;
    QString gsTasa;
    QString gsSistema;
    qint16 giEstadoGrabado = 1;
    qint16 giTotPerdida = 0;
    qint16 giError = 0;
    QString gsMensaje;

    // Geographic picker.
    QString gsUbigeoSel, gsUbigeoCopia, gsZonaSel, gsZonaAbrir;

    // Loss carry-forward dialog.
    QString gsRucPerdida, gsModoPerdida, gsAnhoPerdida, gsImportePerdida;

    // Inconsistency viewer.
    bool gbConsistAbierto = false;
    QString gsRespConsist;

    // Reports: spool writer state.
    QString gsDestinoRpt, gsRutaRpt;
    qint16 gnArchivoRpt = 0, gnHojaRpt = 0, gnLineaRpt = 0, gnPosLinea = 0, gnLineasHoja = 0, gnCopiasRpt = 1;
    QString gvFuenteNombre = QStringLiteral("Courier New");
    int gvFuenteTam = 8;
    bool gvFuenteNegrita = false;
    // Reports: the declaration loaded for printing.
    QVector<QString> gaCasillas = QVector<QString>(901);   // 1..900
    QString gsRucRpt, gsNombreRpt, gsPeriodoRpt, gsTelefonoRpt, gsControlRpt, gsOrdenRpt, gsCorrelRpt;
    qint16 gbRptEnviada = 0;
    qint16 gnTamLetra = 0;        // never assigned: body lines carry size 0
    qint16 gnPosTexto = 0, gnPosCuadro = 0;
    qint16 gnTipoRpt = 2;
    qint16 gbPorHojas = 0, gnHojaDesde = 0, gnHojaHasta = 0;
    // Reports: named casilla texts of the declaration loaded for printing (5, 28, 200, 223,
    // 601-610, 802-818, 860, by number), the legal representative (817, blank, 818) and the
    // payment-record mark ("128" when ACTA says so; nothing reads it).
    QMap<int, QString> gaNombradasRpt;
    QString gsRepresentanteRpt, gsAsistenteRpt;

    // Back to the values of a fresh process (the helper object is released).
    void reiniciar();
};

Globales& G();

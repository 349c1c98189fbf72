#pragma once
// The declaration report: loading a stored declaration into the report globals and building
// its five pages into a spool file (see spool.h).
//
//   page 0  heading, balance sheet: assets
//   page 1  heading, balance sheet: liabilities
//   page 2  heading, balance sheet: equity; profit and loss statement
//   page 3  heading, income tax, identification and regime, payment mode, annexes 473/477
//   page 4  heading, complementary information, carried-forward losses
//
// Rows run down each page in steps of 270 twips; a row's boxes start 50 twips above its text.
#include <QString>
#include <QtGlobal>

// Loads the declaration named by G().gsRucRpt, gsPeriodoRpt and G().gsFormulario (with
// gsCorrelRpt when G().gbRptEnviada) from DET/ACTA, or HCAB/HDET/HACTA when sent, into
// G().gaCasillas (1..900), the named texts (gaNombradasRpt, gsTelefonoRpt, gsRepresentanteRpt)
// and, when sent, gsOrdenRpt. Database errors throw ErrorVB.
void pConsulta();

// Builds the report of the loaded declaration into G().gsRutaRpt (G().gsDestinoRpt "ARCHIVO").
// Handles its own failures with the "Impresión" messages; returns false when one occurred.
bool pImprimeReporte(const QString& texto);
// Opens the spool file, writes the five pages of each copy, closes. Throws on failure.
void pGeneraDeclaracion(const QString& ruc);

void pCabecera(qint16 hoja);
void pHojaActivo(qint16 hoja);
void pHojaPasivo(qint16 hoja);
void pHojaPatrimonio(qint16 hoja);
void pHojaRenta(qint16 hoja);
void pHojaComplementaria(qint16 hoja);

// "   Al 31 de Enero" for a period of month "01", "   Al 30 de Junio" for "06", else "".
QString FechaBalance(const QString& periodo);
// Blanks on the left up to `ancho`; unchanged when already as long.
QString RellenaIzq(const QString& texto, int ancho);

// The figure of a casilla text: money mask of signed totals, padded on the left to 16
// characters, 17 when negative (the closing parenthesis hangs one place to the right).
QString FiguraInforme(const QString& valor);
// Mask of the coefficient or percentage of casilla 610 by year, month and casilla 609.
QString MascaraCoeficiente(const QString& periodo, const QString& sistema);

// Report code of the declaration report in the spool register, and its page count.
inline const QString kCodigoReporte = QStringLiteral("RCP001");
inline constexpr int kHojasDeclaracion = 5;

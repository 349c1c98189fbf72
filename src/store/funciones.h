#pragma once
// General procedures of the data store.
#include <QDate>
#include <QSqlRecord>
#include <QString>
#include <QStringList>

// Six-digit check code of a row about to be written: `fila` holds every column of the table in
// table order with the values in hand (cNumero last, not counted); `claves` is 5 for CAB and
// F0931_PTCEA, 6 for HCAB and DET. The 16-bit product of the second sum overflows into
// ErrorVB 6, uncaught here.
QString CodigoFila(const QSqlRecord& fila, int claves);
// Registers a new report file in SPOOL and returns its name: eight digits and ".PRN".
QString pRegistraSpool(const QString& codRep, int tipoDoc, const QString& docId);
QString MensajeError(int codigo);
QString TipoUsuario();
bool ValidaDocumento(const QString& tipo, const QString& numero);
QString ComboContribuyentes(const QString& formulario);   // statement text (family SQL)
QString DigitoVerificador(const QString& control, const QString& orden);
bool FechaNoFutura(const QString& fecha);                  // "dd/mm/yyyy"
QString FechaTexto(const QString& yyyymmdd);               // -> "dd/mm/yyyy"; "" unchanged
QString fSuma(qint16& variable, qint16 incremento);        // overflow: ErrorVB 6

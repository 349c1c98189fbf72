#pragma once
// Creation of a new shared database: the schema and the catalogue that ship with the module
// (embedded as resources), and on request a few demo taxpayers and users.
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// Creates `archivo` with every table, the catalogue rows and (conDemo) the demo users and
// taxpayers, all or nothing: the database is built in memory and written as a new file that
// takes its name only when whole (publicarArchivo), so a run killed at any point leaves the
// finished file or nothing. Refuses an existing file (ErrorVB 58), a missing folder (76) and a
// folder it can't write (75), each with a Spanish text that names the path.
void crearBaseDatos(const QString& archivo, bool conDemo);

// Runs the shipped schema and loads the shipped catalogue on an open connection, inside the
// caller's transaction. Used by crearBaseDatos; open for tools that build a database in place.
void cargarEsquemaYCatalogo(QSqlDatabase& db);
void cargarDemo(QSqlDatabase& db);

// Pieces of the loader: statements of an SQL script, rows of a CSV text.
QStringList sentenciasSql(const QString& guion);           // one statement a item, no ";"
QList<QStringList> filasCsv(const QString& texto);         // "#" lines skipped, header kept

// Demo data of a new database.
namespace Demo {
inline const QString kUsuarioAdmin = QStringLiteral("ADMIN");         // CLAVES.Tipo "0"
inline const QString kUsuarioContador = QStringLiteral("CONTADOR");   // CLAVES.Tipo "1"

struct Contribuyente {
    qint16 tipoDoc;
    QString documento;
    QString nombre;
    QString usuario;
};
// Every CONT row of the demo, in insertion order: RUCs of type 6 and one DNI row (type 1)
// that no list of this form may show.
const QList<Contribuyente>& contribuyentes();
}

#pragma once
// What every declaration command of `f931` shares: the options
//   --base ARCHIVO.db   the shared database (default: the one QL000.INI names)
//   --hoy AAAA-MM-DD    today's date for every rule (default: F931_HOY, else the clock)
//   --usuario USUARIO   the user of the run (default: SysUser of QL000.INI)
// the preparation of the globals and the connection, and the way a command fails.
#include <QDate>
#include <QString>
#include <QStringList>

#include <functional>

class Frm931;
class QJsonObject;
class RespondedorGuion;

struct OpcionesCli {
    QString base;              // absolute path; empty: the settings file's
    QString usuario;           // empty: the settings file's
    QDate hoy;                 // invalid: F931_HOY or the clock
    QStringList posicionales;  // the rest, in order
};

// Reads the options; an unknown option, a missing value, a bad date or a count of positional
// arguments other than `posicionales` throws ErrorEntrada with the line to print.
OpcionesCli leerOpciones(const QStringList& argumentos, int posicionales, const QString& uso);

// Fixes today, reads the settings file when needed, sets the folders of G() (with --base, the
// database's folder: gsPathSys = folder + "/", RPT/ and TMP/ created when missing), the user,
// and opens the database. A database that is missing, locked, read-only or not the family's
// throws ErrorVB 3051.
void prepararEntorno(const OpcionesCli& opciones);

// Reads a whole input file; a missing or unreadable file throws ErrorEntrada.
QByteArray leerArchivo(const QString& archivo);

// Runs a command's body: ErrorEntrada prints its line on standard error and gives 2, a
// database out of reach (ErrorVB 3051) gives 3 with its text, any other run-time error of the
// rules gives 1 with its text.
int ejecutarComando(const std::function<int()>& cuerpo);

// The frame of the commands that type a declaration (ENTRADA.json as their one positional
// argument): reads the options and the input, prepares the environment, records the message
// boxes, opens a new form and replays the input on it. `cuerpo` then fills the JSON object that
// is printed and returns the exit code.
int ejecutarDeclaracion(const QStringList& argumentos, const QString& uso,
                        const std::function<int(Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida)>& cuerpo);

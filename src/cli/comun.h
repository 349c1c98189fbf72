#pragma once
// What every command of `f931` shares: the reading of its command line, the options of the
// declaration commands
//   --base ARCHIVO.db   the shared database (default: the one QL000.INI names)
//   --hoy AAAA-MM-DD    today's date for every rule (default: F931_HOY, else the clock)
//   --usuario USUARIO   the user of the run (default: SysUser of QL000.INI)
// the preparation of the globals and the connection, one declaration typed on a new form,
// and the way a command fails: exit 2 for bad input, 1 for a run-time error of the rules,
// 3 when the database is unavailable, each with one line on standard error.
#include <QCommandLineParser>
#include <QDate>
#include <QString>
#include <QStringList>

#include <functional>
#include <stdexcept>

class Frm931;
class QJsonObject;
class RespondedorGuion;
struct EntradaDeclaracion;

// The database named can't be used (missing, not a database, locked): exit 3.
struct BaseNoDisponible : std::runtime_error {
    explicit BaseNoDisponible(const QString& mensaje) : std::runtime_error(mensaje.toStdString()), texto(mensaje) {}
    QString texto;
};

// The exit codes, as `f931 --help` lists them.
extern const char* const kCodigosSalida;

struct OpcionesCli {
    QString base;              // absolute path; empty: the settings file's
    QString usuario;           // empty: the settings file's
    QDate hoy;                 // invalid: F931_HOY or the clock
    bool sinUsuario = false;   // a command on the whole database (verificar, respaldar) needs none
};

// The command line of one command, read with QCommandLineParser. Every command has -h/--help;
// the declaration commands also --base, --hoy and --usuario.
class LineaComando {
public:
    // `argumentos` names the positional arguments in the usage line ("ENTRADA.json");
    // `minimo` and `maximo` bound their count (maximo -1: no bound).
    LineaComando(const QString& comando, const QString& argumentos, int minimo, int maximo,
                 const QString& descripcion, bool deDeclaracion);
    // An option of the command's own that takes a value.
    void opcion(const QString& nombre, const QString& valor, const QString& descripcion);
    // Reads the arguments after the command's name. Returns false when the help was asked
    // for (it is printed on standard output: exit 0). An unknown option, an option without
    // its value, a wrong count of positional arguments or a bad shared option throws
    // ErrorEntrada naming it.
    bool leer(const QStringList& argumentos);
    bool tiene(const QString& nombre) const { return parser_.isSet(nombre); }
    QString valor(const QString& nombre) const { return parser_.value(nombre); }
    QStringList posicionales() const { return parser_.positionalArguments(); }
    const OpcionesCli& comunes() const { return comunes_; }
    QString uso() const;
    QString ayuda() const;

private:
    QString comando_, argumentos_, descripcion_;
    int minimo_, maximo_;
    bool deDeclaracion_;
    QList<QCommandLineOption> opciones_;
    QCommandLineParser parser_;
    OpcionesCli comunes_;
};

// Fixes today, reads the settings file when needed, sets the folders of G() (with --base, the
// database's folder: gsPathSys = folder + "/", RPT/ and TMP/ created when missing), the user,
// and opens the database. No database, or one that is missing, locked, read-only or not the
// family's, throws BaseNoDisponible; then no user anywhere throws ErrorEntrada.
void prepararEntorno(const OpcionesCli& opciones);

// Reads a whole input file of at most kTopeEntrada bytes; a missing, unreadable or larger
// file throws ErrorEntrada.
QByteArray leerArchivo(const QString& archivo);

// Runs a command's body: ErrorEntrada prints its line on standard error and gives 2,
// BaseNoDisponible (or ErrorVB 3051, a database out of reach) gives 3, any other run-time
// error of the rules gives 1 with its text.
int ejecutarComando(const std::function<int()>& cuerpo);

// What a declaration command does with the typed form: fills the JSON object printed, sets
// `problema` to the line for standard error when there is one, and returns the exit code.
using CuerpoDeclaracion =
    std::function<int(Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida, QString& problema)>;

// One declaration on a prepared environment: records the message boxes, opens a new form,
// replays the input on it and runs the body. Bad input throws ErrorEntrada. The globals are
// left as the declaration leaves them.
int declarar(const EntradaDeclaracion& entrada, const CuerpoDeclaracion& cuerpo, QJsonObject& salida, QString& problema);

// The frame of a command on one ENTRADA.json: reads the input, prepares the environment,
// types the declaration, prints the JSON object (indented) and the problem line.
int ejecutarDeclaracion(const LineaComando& linea, const CuerpoDeclaracion& cuerpo);

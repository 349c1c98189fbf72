#pragma once
// The path from process start to an idle main window: the launcher handshake, the
// single-instance test, the settings and the database connection.
#include <QString>

#include <functional>
#include <memory>

class QLockFile;

// Title of the launcher's main window; the module runs only while it is open.
inline const QString kTituloIntegrador = QStringLiteral("Programa Qualvia");

// Reads Options of QL000.INI into the folders, the database name and the user (G()). SysPath is
// taken as written: it must end with "/", nothing is added. The current folder becomes SysPath.
void pLeerIni();

// Writes SystemDB into QL000.INI and opens G().gsBaseDatos as the one connection. On failure
// shows the connection message and returns false: the caller ends the process.
bool fAbrirBase();
class ErrorVB;
// The connection message: for 3051 the number as Str gives it and "- Base esta bloqueda", with
// no icon; for any other number the error's text, a line feed and the number. Title "Error de
// Conección".
void mostrarErrorConexion(const ErrorVB& error);

// The program's help file, set by the main window's load.
QString& archivoAyuda();

// The run-time's previous-instance test, by program name: a lock file named after the program
// in the temporary folder, held for the life of the process.
class InstanciaUnica {
public:
    explicit InstanciaUnica(const QString& programa);
    ~InstanciaUnica();
    InstanciaUnica(const InstanciaUnica&) = delete;
    InstanciaUnica& operator=(const InstanciaUnica&) = delete;
    // True when a running process of the same program holds the name; otherwise this process
    // takes it (a lock left by a process that died is taken over).
    bool hayInstanciaPrevia();
    QString archivo() const { return archivo_; }

private:
    QString archivo_;
    std::unique_ptr<QLockFile> cerrojo_;
    bool tomado_ = false;
};

// Looks for a visible top-level window by its exact title.
using BuscarVentana = std::function<bool(const QString& titulo)>;
BuscarVentana buscadorDelSistema();   // cWindows::CorreApp

// Main's checks, in their fixed order: helper object, launcher present, no previous instance.
// Each refusal shows its message and returns false, so the process ends before any setting
// is read.
bool comprobarInicio(const BuscarVentana& correApp, const std::function<bool()>& hayInstanciaPrevia);

#pragma once
// Private-profile settings files, read and written the way the family's programs expect:
//
//   [Options]
//   SysPath=/home/ana/qualvia/
//
// Section and key names compare without regard to case; a value is read without the blanks
// around it and without one pair of enclosing quotes. A read fills a buffer of `tamano`
// characters, of which the last is the terminator, so at most tamano - 1 characters come back.
// A missing or unreadable file, section or key reads as the default. Writing changes one line
// (or adds it, and its section when needed) and leaves the rest of the file as it was.
#include <QString>

QString GetPrivateProfileString(const QString& seccion, const QString& clave, const QString& defecto,
                                const QString& archivo, int tamano = 255);
// Writes key=valor into the section; creates the file and the folder's file when missing.
// Returns false when the file cannot be written (the callers ignore it, as they always have).
bool WritePrivateProfileString(const QString& seccion, const QString& clave, const QString& valor,
                               const QString& archivo);

// The family's settings file QL000.INI: in the folder that QVL_WINDIR names, else in the
// user's configuration folder under "qualvia/".
QString carpetaIni();
QString archivoIni();

// One key of section "Options" of QL000.INI as the module reads it: empty default, 255-character
// buffer, trimmed.
QString leerOpcion(const QString& clave);
bool escribirOpcion(const QString& clave, const QString& valor);

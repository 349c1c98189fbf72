#pragma once
// The family folder as the launcher leaves it for its modules:
//
//   <carpeta>/            SysPath, DBPath; Mens.txt and QL000.MDW name files here
//             TMP/ RPT/ BMP/ 0931/
//             QL000.DB    the shared database
//
// and QL000.INI (in carpetaIni()) with SysPath, SysVersion, DBPath, DBName, SysMenu, SysUser.
#include <QString>
#include <QList>
#include <QPair>
#include <QStringList>

inline const QString kNombreBase = QStringLiteral("QL000.DB");

struct Familia {
    QString carpeta;       // ends with "/"
    QString archivoBase;   // carpeta + kNombreBase
    bool baseCreada = false;   // this call created the database
};

// Creates what is missing (folders; the database with schema, catalogue and demo data) and
// writes the launcher's keys of QL000.INI. SysUser is written only when absent, with the demo
// user who sees all taxpayers. `ayuda` names the help page that ships with the module; it is
// copied to 0931/Ql931.hlp at every call, so the family always has the current one. Throws ErrorVB when the folder or the database cannot be made.
Familia prepararFamilia(const QString& carpeta, const QString& ayuda = QString());

// The folder the launcher uses when told none: "qualvia/" in the user's home.
QString carpetaFamiliaPorDefecto();

// Users of CLAVES (name, type) by name; empty when the database
// cannot be read. Uses a connection of its own, never the module's one.
QList<QPair<QString, QString>> usuariosDeBase(const QString& archivoBase);

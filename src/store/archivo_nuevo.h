#pragma once
// Whole database files written so that under their name there is only ever the finished file or
// nothing at all: a new database, a backup copy.
#include <QByteArray>
#include <QSqlDatabase>
#include <QString>

// Writes `contenido` as the new file `destino`. The bytes go to an anonymous file in the
// destination's folder and are flushed to the disk; the file then takes its name in one step
// that never replaces an existing file, and the folder is flushed too. A process killed on the
// way (even by SIGKILL) leaves nothing behind. Where the folder's file system has no anonymous
// files, a hidden temporary name in the same folder stands in: it is removed on failure and on
// SIGINT, SIGTERM and SIGHUP, and its unique name never blocks a later run.
// Throws ErrorVB 58 when `destino` exists, 76 when its folder is missing, 75 when the folder
// can't be written; each text names the path.
void publicarArchivo(const QByteArray& contenido, const QString& destino);

// The bytes of the database file of an open connection, as one consistent snapshot taken with
// the engine's backup interface while other connections may be writing.
QByteArray imagenConsistente(const QSqlDatabase& db);

// The bytes of a database held in memory by the connection (its file image).
QByteArray imagenEnMemoria(const QSqlDatabase& db);

#pragma once
// Catalogue PARAM and the fillers of the declaration form's lists.
#include <QString>
#include <QStringList>

QString DescDepartamento(const QString& codigo);
QString DescProvincia(const QString& codigo);
QString DescDistrito(const QString& codigo);
// Items of a document-type combo: those flagged "1" at `posicion` of Funcion, a first item of
// 75 blanks when `enBlanco`.
QStringList pLlenaTipoDoc(int posicion, bool enBlanco);
QStringList pCargaZona();     // items of CmbZona
QStringList pCargaContrib();  // items of CmbRuc for the user in hand
QString getUITTexto(const QString& periodo);  // value of the latest UIT year not after the period; "" if none

#include "shell/vista/traduccion_qt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

bool cargarTraduccionQt(QCoreApplication& aplicacion)
{
    auto* traductor = new QTranslator(&aplicacion);
    if (!traductor->load(QLocale(QLocale::Spanish, QLocale::Peru), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete traductor;
        return false;
    }
    return QCoreApplication::installTranslator(traductor);
}

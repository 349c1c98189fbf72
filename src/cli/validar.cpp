// f931 validar [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json
// Types the declaration into a new form as `calcular` does, then runs the full and the silent
// validation passes: the output of `calcular` plus "inconsistencias" (the lines of the message
// file, in order) and "estado" (0 when the silent pass accepts it, else 9). The message boxes
// the passes show are in "mensajes".
#include "cli/validar.h"

#include "basic/respondedor_guion.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

QJsonArray inconsistenciasDe(Frm931& frm)
{
    Globales& g = G();
    // One folder for the run: a batch validates declaration after declaration in it.
    static const QTemporaryDir carpeta;
    const QString anterior = g.gsArchMens;
    g.gsArchMens = carpeta.filePath(QStringLiteral("Mens.txt"));
    QFile::remove(g.gsArchMens);   // what an earlier declaration left is not this one's
    try {
        frm.ValidaFormulario();
    } catch (...) {
        g.gsArchMens = anterior;
        throw;
    }
    QJsonArray lineas;
    QFile f(g.gsArchMens);
    if (f.open(QIODevice::ReadOnly | QIODevice::Text)) {
        QTextStream in(&f);
        in.setEncoding(QStringConverter::Utf8);
        while (!in.atEnd()) {
            const QString linea = in.readLine();
            if (!linea.isEmpty())
                lineas.append(linea);
        }
    }
    g.gsArchMens = anterior;
    return lineas;
}

int estadoDe(Frm931& frm)
{
    bool bOk = true;
    frm.ValidaCompleto(bOk);
    return bOk ? 0 : 9;
}

namespace {

int comandoValidar(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        LineaComando linea(QStringLiteral("validar"), QStringLiteral("ENTRADA.json"), 1, 1,
                           QStringLiteral("Como calcular, y además las pasadas de validación: inconsistencias (las\n"
                                          "líneas de Mens.txt) y estado (0 consistente, 9 con inconsistencias)."),
                           true);
        if (!linea.leer(argumentos))
            return 0;
        return ejecutarDeclaracion(linea, [](Frm931& frm, RespondedorGuion& respondedor, QJsonObject& salida, QString&) {
            const QJsonArray lineas = inconsistenciasDe(frm);
            const int estado = estadoDe(frm);
            salida = salidaCalcular(frm, respondedor);
            salida.insert(QStringLiteral("inconsistencias"), lineas);
            salida.insert(QStringLiteral("estado"), estado);
            return 0;
        });
    });
}

RegistroComando registro("validar", &comandoValidar, "como calcular, con las inconsistencias y el estado");

}  // namespace

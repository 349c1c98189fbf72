// f931 calcular [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json
// Types the declaration into a new form as a user would and prints what the form shows.
#include "basic/respondedor_guion.h"
#include "cli/comandos.h"
#include "cli/comun.h"
#include "form931/guion.h"
#include "store/base.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QTextStream>

#include <cstdio>

namespace {

const QString kUso = QStringLiteral(
    "uso: f931 calcular [--base ARCHIVO.db] [--hoy AAAA-MM-DD] [--usuario USUARIO] ENTRADA.json");

int comandoCalcular(const QStringList& argumentos)
{
    return ejecutarComando([&] {
        const OpcionesCli o = leerOpciones(argumentos, 1, kUso);
        const QByteArray json = leerArchivo(QFileInfo(o.posicionales.first()).absoluteFilePath());
        const EntradaDeclaracion entrada = leerEntrada(json);
        prepararEntorno(o);

        RespondedorGuion respondedor;
        instalarRespondedor(&respondedor);
        EntornoSinPantalla entorno;
        int codigo = 0;
        {
            Frm931 frm(&entorno);
            try {
                reproducirEntrada(frm, entorno, entrada);
            } catch (...) {
                instalarRespondedor(nullptr);
                throw;
            }
            const QByteArray salida = QJsonDocument(salidaCalcular(frm, respondedor)).toJson(QJsonDocument::Indented);
            std::fwrite(salida.constData(), 1, static_cast<size_t>(salida.size()), stdout);
            std::fflush(stdout);
        }
        instalarRespondedor(nullptr);
        cerrarBase();
        return codigo;
    });
}

RegistroComando registro("calcular", &comandoCalcular);

}  // namespace

#include "basic/respondedor_guion.h"

int RespondedorGuion::MsgBox(const QString& texto, int flags, const QString& titulo)
{
    const int boton = respuestas.isEmpty() ? botonPorDefecto(flags) : respuestas.takeFirst();
    mostrados.append({texto, titulo, flags, boton});
    return boton;
}

QStringList RespondedorGuion::textos() const
{
    QStringList lista;
    for (const auto& m : mostrados)
        lista << m.texto;
    return lista;
}

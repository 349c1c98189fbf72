#pragma once
// A responder that answers message boxes from a script (or with their default button) and
// records every text shown, in order. Used by the CLI and by the tests.
#include "basic/msgbox.h"
#include <QList>
#include <QString>

struct MensajeMostrado {
    QString texto;
    QString titulo;
    int flags = 0;
    int boton = 0;
};

class RespondedorGuion : public Respondedor {
public:
    int MsgBox(const QString& texto, int flags, const QString& titulo) override;
    // Answers to give, in order; when they run out, the default button.
    QList<int> respuestas;
    QList<MensajeMostrado> mostrados;
    QStringList textos() const;
};

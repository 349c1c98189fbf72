#pragma once
// Where the cursor of a picker's grid stands after its list was read again: on the row it
// stood on when the list is the same, else on the same declaration wherever it went, else on
// the row at the same place (the last one when the list got shorter).
#include <QVector>

template <class Fila, class MismaDeclaracion>
int filaTrasRecarga(const QVector<Fila>& antes, int filaAntes, const QVector<Fila>& ahora,
                    MismaDeclaracion misma)
{
    if (ahora.isEmpty())
        return -1;
    if (filaAntes < 0 || filaAntes >= antes.size())
        return 0;
    if (ahora == antes)
        return filaAntes;
    const Fila& elegida = antes.at(filaAntes);
    for (int i = 0; i < ahora.size(); ++i)
        if (misma(elegida, ahora.at(i)))
            return i;
    return qMin(filaAntes, static_cast<int>(ahora.size()) - 1);
}

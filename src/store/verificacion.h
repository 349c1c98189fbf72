#pragma once
// The check codes (cNumero) of the stored rows, recomputed: a row changed behind the module's
// back, by hand with an SQL tool, no longer agrees with its code.
#include <QList>
#include <QString>
#include <QVariantMap>

// A table that carries the code and how many leading key columns the code takes.
struct TablaConCodigo {
    QString nombre;
    int claves;
};
// CAB 5, DET 6, F0931_PTCEA 5 and their history twins, which add CORREL to the key: HCAB 6,
// HDET 7, HF0931_PTCEA 6.
const QList<TablaConCodigo>& tablasConCodigo();

struct CodigoDistinto {
    QString tabla;
    QVariantMap clave;     // the key columns of the row, by name
    QString guardado;      // cNumero as stored ("" when null)
    QString esperado;      // the code of the row's values; "" when they can't give one
};

struct Verificacion {
    int revisadas = 0;
    QList<CodigoDistinto> distintas;
};

// Every row of every table that carries a code, read in one snapshot of the open database.
Verificacion verificarCodigos();

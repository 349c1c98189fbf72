#include "store/verificacion.h"

#include "basic/errores.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>
#include <QSqlRecord>

const QList<TablaConCodigo>& tablasConCodigo()
{
    static const QList<TablaConCodigo> tablas = {
        {QStringLiteral("CAB"), 5},  {QStringLiteral("DET"), 6},  {QStringLiteral("F0931_PTCEA"), 5},
        {QStringLiteral("HCAB"), 6}, {QStringLiteral("HDET"), 7}, {QStringLiteral("HF0931_PTCEA"), 6},
    };
    return tablas;
}

Verificacion verificarCodigos()
{
    Verificacion v;
    // One read transaction: every table is seen at the same moment, whatever others write.
    ejecutar(QStringLiteral("BEGIN"));
    try {
        for (const TablaConCodigo& t : tablasConCodigo()) {
            // The table names are the module's own, never a user's.
            QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(t.nombre));
            while (q.next()) {
                const QSqlRecord fila = q.record();
                ++v.revisadas;
                const QString guardado = fila.value(fila.count() - 1).toString();
                QString esperado;
                try {
                    esperado = CodigoFila(fila, t.claves);
                } catch (const ErrorVB&) {
                    // Values that overflow the code can't have been written by the module.
                }
                if (esperado == guardado && !esperado.isEmpty())
                    continue;
                CodigoDistinto d{t.nombre, {}, guardado, esperado};
                for (int i = 0; i < t.claves && i < fila.count() - 1; ++i)
                    d.clave.insert(fila.fieldName(i), fila.value(i));
                v.distintas << d;
            }
        }
    } catch (...) {
        ejecutar(QStringLiteral("ROLLBACK"));
        throw;
    }
    ejecutar(QStringLiteral("ROLLBACK"));
    return v;
}

#include "shell/ini.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringList>

#include "basic/texto.h"

namespace {

struct Lineas {
    QStringList lineas;
    QString fin = QStringLiteral("\n");   // the file's own line ending
    bool terminaEnFin = true;
};

Lineas leerLineas(const QString& archivo)
{
    Lineas r;
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        return r;
    const QByteArray datos = f.readAll();
    if (datos.contains("\r\n"))
        r.fin = QStringLiteral("\r\n");
    QString texto = QString::fromUtf8(datos);
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    texto.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    r.terminaEnFin = texto.isEmpty() || texto.endsWith(QLatin1Char('\n'));
    if (texto.endsWith(QLatin1Char('\n')))
        texto.chop(1);
    if (!texto.isEmpty())
        r.lineas = texto.split(QLatin1Char('\n'));
    return r;
}

// The section name of a header line ("[Options]" -> "Options"), or a null string.
QString seccionDe(const QString& linea)
{
    const QString t = linea.trimmed();
    if (!t.startsWith(QLatin1Char('[')))
        return QString();
    const int cierre = t.indexOf(QLatin1Char(']'));
    return (cierre < 0 ? t.mid(1) : t.mid(1, cierre - 1)).trimmed();
}

bool esComentario(const QString& linea)
{
    const QString t = linea.trimmed();
    return t.startsWith(QLatin1Char(';'));
}

bool mismoNombre(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Index of the first header of the section, or -1.
int buscarSeccion(const QStringList& lineas, const QString& seccion)
{
    for (int i = 0; i < lineas.size(); ++i) {
        const QString nombre = seccionDe(lineas[i]);
        if (!nombre.isNull() && mismoNombre(nombre, seccion.trimmed()))
            return i;
    }
    return -1;
}

// Index one past the last line of the section that begins at `cabecera`.
int finDeSeccion(const QStringList& lineas, int cabecera)
{
    int i = cabecera + 1;
    while (i < lineas.size() && seccionDe(lineas[i]).isNull())
        ++i;
    return i;
}

// Index of the key's line inside [desde, hasta), or -1.
int buscarClave(const QStringList& lineas, int desde, int hasta, const QString& clave)
{
    for (int i = desde; i < hasta; ++i) {
        if (esComentario(lineas[i]))
            continue;
        const int igual = lineas[i].indexOf(QLatin1Char('='));
        if (igual < 0)
            continue;
        if (mismoNombre(lineas[i].left(igual).trimmed(), clave.trimmed()))
            return i;
    }
    return -1;
}

QString sinComillas(const QString& valor)
{
    if (valor.size() >= 2) {
        const QChar primero = valor.front();
        if ((primero == QLatin1Char('"') || primero == QLatin1Char('\'')) && valor.back() == primero)
            return valor.mid(1, valor.size() - 2);
    }
    return valor;
}

}  // namespace

QString GetPrivateProfileString(const QString& seccion, const QString& clave, const QString& defecto,
                                const QString& archivo, int tamano)
{
    if (tamano <= 0)
        return QString();
    const int maximo = tamano - 1;
    const Lineas l = leerLineas(archivo);
    const int cabecera = buscarSeccion(l.lineas, seccion);
    if (cabecera >= 0) {
        const int fin = finDeSeccion(l.lineas, cabecera);
        const int i = buscarClave(l.lineas, cabecera + 1, fin, clave);
        if (i >= 0) {
            const QString& linea = l.lineas[i];
            const QString valor = sinComillas(linea.mid(linea.indexOf(QLatin1Char('=')) + 1).trimmed());
            return valor.left(maximo);
        }
    }
    QString d = defecto;
    while (d.endsWith(QLatin1Char(' ')))
        d.chop(1);
    return d.left(maximo);
}

bool WritePrivateProfileString(const QString& seccion, const QString& clave, const QString& valor,
                               const QString& archivo)
{
    Lineas l = leerLineas(archivo);
    const QString nueva = clave.trimmed() + QLatin1Char('=') + valor;
    const int cabecera = buscarSeccion(l.lineas, seccion);
    if (cabecera < 0) {
        if (!l.lineas.isEmpty() && !l.lineas.last().trimmed().isEmpty())
            l.lineas << QString();
        l.lineas << QLatin1Char('[') + seccion.trimmed() + QLatin1Char(']') << nueva;
    } else {
        int fin = finDeSeccion(l.lineas, cabecera);
        const int i = buscarClave(l.lineas, cabecera + 1, fin, clave);
        if (i >= 0) {
            l.lineas[i] = nueva;
        } else {
            // After the section's last line that is not blank.
            while (fin > cabecera + 1 && l.lineas[fin - 1].trimmed().isEmpty())
                --fin;
            l.lineas.insert(fin, nueva);
        }
    }
    QString texto = l.lineas.join(l.fin);
    if (l.terminaEnFin)
        texto += l.fin;

    QSaveFile f(archivo);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.write(texto.toUtf8());
    return f.commit();
}

QString carpetaIni()
{
    const QString entorno = qEnvironmentVariable("QVL_WINDIR");
    if (!entorno.isEmpty())
        return QDir::cleanPath(entorno);
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/qualvia");
}

QString archivoIni()
{
    return carpetaIni() + QStringLiteral("/QL000.INI");
}

QString leerOpcion(const QString& clave)
{
    return Trim(GetPrivateProfileString(QStringLiteral("Options"), clave, QString(), archivoIni(), 255));
}

bool escribirOpcion(const QString& clave, const QString& valor)
{
    return WritePrivateProfileString(QStringLiteral("Options"), clave, valor, archivoIni());
}

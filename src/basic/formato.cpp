#include "basic/formato.h"

#include <QHash>
#include <bit>

#include "basic/decimal.h"
#include "basic/errores.h"
#include "basic/texto.h"

#include <QList>
#include <QRegularExpression>
#include <QTime>

#include <cmath>

namespace {

// ---------------------------------------------------------------------------------------------
// Pictures: split into sections and tokens.

enum class Clase { Cero, Almohadilla, Punto, Coma, Porcentaje, Literal };

struct Ficha {
    Clase clase;
    QChar c;
    bool esDigito() const { return clase == Clase::Cero || clase == Clase::Almohadilla; }
};

// Sections separated by ";"; a ";" inside quotes or after a backslash stands for itself.
QStringList partirSecciones(const QString& picture)
{
    QStringList lista;
    QString actual;
    bool entreComillas = false;
    for (int i = 0; i < picture.size(); ++i) {
        const QChar c = picture[i];
        if (c == QLatin1Char('"'))
            entreComillas = !entreComillas;
        if (!entreComillas && c == QLatin1Char('\\') && i + 1 < picture.size()) {
            actual += c;
            actual += picture[++i];
            continue;
        }
        if (!entreComillas && c == QLatin1Char(';')) {
            lista << actual;
            actual.clear();
            continue;
        }
        actual += c;
    }
    lista << actual;
    return lista;
}

QList<Ficha> leerFichas(const QString& seccion)
{
    QList<Ficha> lista;
    bool entreComillas = false;
    for (int i = 0; i < seccion.size(); ++i) {
        const QChar c = seccion[i];
        if (c == QLatin1Char('"')) {
            entreComillas = !entreComillas;
            continue;
        }
        if (entreComillas) {
            lista.append({Clase::Literal, c});
            continue;
        }
        if (c == QLatin1Char('\\') && i + 1 < seccion.size()) {
            lista.append({Clase::Literal, seccion[++i]});
            continue;
        }
        switch (c.unicode()) {
        case '0': lista.append({Clase::Cero, c}); break;
        case '#': lista.append({Clase::Almohadilla, c}); break;
        case '.': lista.append({Clase::Punto, c}); break;
        case ',': lista.append({Clase::Coma, c}); break;
        case '%': lista.append({Clase::Porcentaje, c}); break;
        default: lista.append({Clase::Literal, c}); break;
        }
    }
    return lista;
}

// A program uses a handful of pictures: each one is split and read once.
template <typename T>
const T& unaVez(QHash<QString, T>& hechos, const QString& clave, T (*leer)(const QString&))
{
    auto it = hechos.constFind(clave);
    if (it == hechos.constEnd()) {
        if (hechos.size() >= 256)
            hechos.clear();
        it = hechos.insert(clave, leer(clave));
    }
    return *it;
}

QStringList secciones(const QString& picture)
{
    static QHash<QString, QStringList> hechas;
    return unaVez(hechas, picture, &partirSecciones);
}

QList<Ficha> fichas(const QString& seccion)
{
    static QHash<QString, QList<Ficha>> hechas;
    return unaVez(hechas, seccion, &leerFichas);
}

QString agrupar(const QString& digitos)
{
    QString s;
    const int n = int(digitos.size());
    for (int i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            s += QLatin1Char(',');
        s += digitos[i];
    }
    return s;
}

// A section read for use: its integer and fraction placeholders and what they ask for.
struct Seccion {
    QList<Ficha> entera, fraccion;
    bool hayPunto = false, agrupa = false, porcentaje = false;
    int decimales = 0, forzados = 0;
    int minimo = 0;     // integer digits forced, from the first "0" placeholder to the point
    int primero = -1;   // the leftmost integer placeholder, which takes all digits left over
};

Seccion analizarSeccion(const QString& texto)
{
    Seccion s;
    const QList<Ficha> todas = fichas(texto);
    int punto = -1;
    for (int i = 0; i < todas.size(); ++i)
        if (todas[i].clase == Clase::Punto) {
            punto = i;
            break;
        }
    s.hayPunto = punto >= 0;
    // Integer part: a comma after a digit placeholder means grouping by thousands, wherever it
    // stands; a comma before any placeholder is a literal. Commas after the point are ignored.
    bool hayDigito = false;
    for (int i = 0; i < (punto < 0 ? todas.size() : punto); ++i) {
        const Ficha& f = todas[i];
        if (f.clase == Clase::Coma) {
            if (hayDigito)
                s.agrupa = true;
            else
                s.entera.append({Clase::Literal, f.c});
            continue;
        }
        if (f.clase == Clase::Porcentaje) {
            s.porcentaje = true;
            s.entera.append({Clase::Literal, f.c});
            continue;
        }
        hayDigito = hayDigito || f.esDigito();
        s.entera.append(f);
    }
    if (punto >= 0)
        for (int i = punto + 1; i < todas.size(); ++i) {
            const Ficha& f = todas[i];
            if (f.clase == Clase::Coma || f.clase == Clase::Punto)
                continue;
            if (f.clase == Clase::Porcentaje) {
                s.porcentaje = true;
                s.fraccion.append({Clase::Literal, f.c});
                continue;
            }
            if (f.esDigito()) {
                ++s.decimales;
                if (f.clase == Clase::Cero)
                    s.forzados = s.decimales;   // a "0" forces every decimal up to its own
            }
            s.fraccion.append(f);
        }
    bool cero = false;
    for (const Ficha& f : s.entera)
        if (f.esDigito()) {
            cero = cero || f.clase == Clase::Cero;
            if (cero)
                ++s.minimo;
        }
    for (int i = 0; i < s.entera.size(); ++i)
        if (s.entera[i].esDigito()) {
            s.primero = i;
            break;
        }
    return s;
}

// One section applied to a magnitude (the sign is the caller's business).
QString aplicarSeccion(decimal::Numero n, const QString& texto)
{
    static QHash<QString, Seccion> leidas;
    const Seccion& seccion = unaVez(leidas, texto, &analizarSeccion);
    const QList<Ficha>& entera = seccion.entera;
    const QList<Ficha>& fraccion = seccion.fraccion;
    const bool porcentaje = seccion.porcentaje, agrupa = seccion.agrupa;
    const int decimales = seccion.decimales, forzados = seccion.forzados, minimo = seccion.minimo;
    const int primero = seccion.primero;

    if (porcentaje && !n.esCero())
        n.punto += 2;
    const decimal::Numero r = decimal::redondear(n, decimales, decimal::Redondeo::MitadLejosDeCero);
    QString enteros = decimal::parteEntera(r);
    QString fraccionDigitos = decimal::parteDecimal(r, decimales);

    if (enteros.size() < minimo)
        enteros = QString(minimo - enteros.size(), QLatin1Char('0')) + enteros;
    const QString cadena = agrupa ? agrupar(enteros) : enteros;

    // Fill the integer placeholders from the right; the leftmost one takes all that is left.
    QString izquierda;   // built backwards
    int k = int(cadena.size()) - 1;
    for (int i = int(entera.size()) - 1; i >= 0; --i) {
        const Ficha& f = entera[i];
        if (!f.esDigito()) {
            izquierda.prepend(f.c);
            continue;
        }
        if (i == primero) {
            izquierda.prepend(cadena.left(k + 1));
            k = -1;
            continue;
        }
        if (k >= 0) {
            QString trozo(cadena[k--]);
            if (k >= 0 && cadena[k] == QLatin1Char(','))
                trozo.prepend(cadena[k--]);
            izquierda.prepend(trozo);
        }
    }
    if (primero < 0 && seccion.hayPunto)
        izquierda += cadena;   // no integer placeholder: the integer digits still stand before the point

    QString resultado = izquierda;
    if (seccion.hayPunto) {
        // Trailing zeros beyond the last "0" placeholder are dropped.
        int mostrar = int(fraccionDigitos.size());
        while (mostrar > forzados && fraccionDigitos[mostrar - 1] == QLatin1Char('0'))
            --mostrar;
        resultado += QLatin1Char('.');
        int d = 0;
        for (const Ficha& f : fraccion) {
            if (!f.esDigito()) {
                resultado += f.c;
                continue;
            }
            if (d < mostrar)
                resultado += fraccionDigitos[d];
            ++d;
        }
    }
    return resultado;
}

QString formatoNumerico(const decimal::Numero& n, const QString& picture)
{
    const QStringList lista = secciones(picture);
    decimal::Numero magnitud = n;
    magnitud.negativo = false;
    if (n.esCero() && lista.size() >= 3 && !lista[2].isEmpty())
        return aplicarSeccion(magnitud, lista[2]);
    if (n.negativo) {
        if (lista.size() >= 2 && !lista[1].isEmpty())
            return aplicarSeccion(magnitud, lista[1]);   // the negative section shows the magnitude
        return QLatin1Char('-') + aplicarSeccion(magnitud, lista[0]);
    }
    return aplicarSeccion(magnitud, lista[0]);
}

// ---------------------------------------------------------------------------------------------
// Date pictures.

bool esLetraFecha(QChar c)
{
    const char l = c.toLower().toLatin1();
    return l == 'd' || l == 'm' || l == 'y' || l == 'h' || l == 'n' || l == 's';
}

// A picture with a digit placeholder is numeric; one with date letters (and none) is a date.
bool esPictureFecha(const QString& picture)
{
    if (picture.contains(QLatin1Char('#')) || picture.contains(QLatin1Char('0')))
        return false;
    for (QChar c : picture)
        if (esLetraFecha(c))
            return true;
    return false;
}

QString dos(int v) { return QStringLiteral("%1").arg(v, 2, 10, QLatin1Char('0')); }

QString formatoFecha(const QDate& fecha, const QTime& hora, const QString& picture)
{
    struct Trozo {
        QChar letra;   // lower case, or 0 for a literal
        int veces;
        QChar literal;
    };
    QList<Trozo> trozos;
    for (int i = 0; i < picture.size();) {
        const QChar c = picture[i];
        if (!esLetraFecha(c)) {
            trozos.append({QChar(), 0, c});
            ++i;
            continue;
        }
        int j = i;
        while (j < picture.size() && picture[j].toLower() == c.toLower())
            ++j;
        trozos.append({c.toLower(), j - i, QChar()});
        i = j;
    }
    QString s;
    QChar anterior;   // last letter seen: "m" right after "h" means minutes
    for (int t = 0; t < trozos.size(); ++t) {
        const Trozo& z = trozos[t];
        if (z.letra.isNull()) {
            s += z.literal;
            continue;
        }
        QChar siguiente;
        for (int u = t + 1; u < trozos.size() && siguiente.isNull(); ++u)
            siguiente = trozos[u].letra;
        switch (z.letra.toLatin1()) {
        case 'd': s += z.veces >= 2 ? dos(fecha.day()) : QString::number(fecha.day()); break;
        case 'y':
            if (z.veces >= 3)
                s += QStringLiteral("%1").arg(fecha.year(), 4, 10, QLatin1Char('0'));
            else if (z.veces == 2)
                s += dos(fecha.year() % 100);
            else
                s += QString::number(fecha.dayOfYear());
            break;
        case 'h': s += z.veces >= 2 ? dos(hora.hour()) : QString::number(hora.hour()); break;
        case 'n': s += z.veces >= 2 ? dos(hora.minute()) : QString::number(hora.minute()); break;
        case 's': s += z.veces >= 2 ? dos(hora.second()) : QString::number(hora.second()); break;
        case 'm': {
            const bool minutos = anterior == QLatin1Char('h') || siguiente == QLatin1Char('s');
            const int v = minutos ? hora.minute() : fecha.month();
            s += z.veces >= 2 ? dos(v) : QString::number(v);
            break;
        }
        default: break;
        }
        anterior = z.letra;
    }
    return s;
}

// Day zero of the runtime's date numbers.
const QDate kDiaCero(1899, 12, 30);
// The runtime's dates run from 1 January 100 to 31 December 9999.
const double kSeriePrimera = double(kDiaCero.daysTo(QDate(100, 1, 1)));
const double kSerieTope = double(kDiaCero.daysTo(QDate(9999, 12, 31))) + 1.0;

// A date number as a moment; invalid when it lies outside the runtime's dates (NaN too).
QDateTime desdeSerie(double serie)
{
    if (!(serie >= kSeriePrimera && serie < kSerieTope))
        return QDateTime();
    const double dias = std::floor(serie);
    const QDate fecha = kDiaCero.addDays(qint64(dias));
    const int segundos = int(std::lround((serie - dias) * 86400.0));
    return QDateTime(fecha, QTime(0, 0)).addSecs(segundos);
}

double aSerie(const QDateTime& momento)
{
    const double dias = double(kDiaCero.daysTo(momento.date()));
    return dias + QTime(0, 0).secsTo(momento.time()) / 86400.0;
}

// A text read as a date: "d/m/yyyy", "yyyy-mm-dd" (with an optional time), or a date number.
bool leerFecha(const QString& texto, QDateTime& momento)
{
    const QString t = texto.trimmed();
    static const QRegularExpression dmy(QStringLiteral("^(\\d{1,2})/(\\d{1,2})/(\\d{4})(?:\\s+(\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})(?:[T ](\\d{1,2}):(\\d{2})(?::(\\d{2}))?)?$"));
    static const QRegularExpression hms(QStringLiteral("^(\\d{1,2}):(\\d{2})(?::(\\d{2}))?$"));
    QRegularExpressionMatch m = dmy.match(t);
    QDate fecha;
    QTime hora(0, 0);
    if (m.hasMatch()) {
        fecha = QDate(m.captured(3).toInt(), m.captured(2).toInt(), m.captured(1).toInt());
        if (m.lastCapturedIndex() >= 5)
            hora = QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
    } else if ((m = iso.match(t)).hasMatch()) {
        fecha = QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
        if (m.lastCapturedIndex() >= 5)
            hora = QTime(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
    } else if ((m = hms.match(t)).hasMatch()) {
        fecha = kDiaCero;
        hora = QTime(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    } else {
        double serie = 0;
        if (!LeerNumerico(texto, serie))
            return false;
        momento = desdeSerie(serie);
        return momento.isValid();
    }
    if (!fecha.isValid() || !hora.isValid())
        return false;
    momento = QDateTime(fecha, hora);
    return true;
}

}

QString Format(const QString& texto, const QString& picture)
{
    if (texto.isEmpty())
        return texto;
    if (esPictureFecha(picture)) {
        QDateTime momento;
        if (!leerFecha(texto, momento))
            return texto;
        return formatoFecha(momento.date(), momento.time(), picture);
    }
    double valor = 0;
    if (!LeerNumerico(texto, valor))
        return texto;
    return Format(valor, picture);
}

QString Format(double valor, const QString& picture)
{
    if (!std::isfinite(valor))
        throw errorDesbordamiento();
    if (esPictureFecha(picture)) {
        const QDateTime momento = desdeSerie(valor);
        if (!momento.isValid())
            throw errorDesbordamiento();
        return formatoFecha(momento.date(), momento.time(), picture);
    }
    // The text depends on the number and the picture alone, and a form formats the same few
    // figures with the same few pictures again and again: each pair is worked out once.
    static QHash<QPair<QString, quint64>, QString> hechos;
    const QPair<QString, quint64> clave(picture, std::bit_cast<quint64>(valor));
    const auto it = hechos.constFind(clave);
    if (it != hechos.constEnd())
        return *it;
    if (hechos.size() >= 8192)
        hechos.clear();
    const QString texto = formatoNumerico(decimal::desdeDouble(valor), picture);
    hechos.insert(clave, texto);
    return texto;
}

QString Format(qint64 valor, const QString& picture)
{
    if (esPictureFecha(picture))
        return Format(double(valor), picture);
    return formatoNumerico(decimal::desdeEntero(valor), picture);
}

QString Format(const QDate& fecha, const QString& picture)
{
    if (!fecha.isValid())
        return QString();
    if (!esPictureFecha(picture))
        return Format(qint64(kDiaCero.daysTo(fecha)), picture);
    return formatoFecha(fecha, QTime(0, 0), picture);
}

QString Format(const QDateTime& momento, const QString& picture)
{
    if (!momento.isValid())
        return QString();
    if (!esPictureFecha(picture))
        return Format(aSerie(momento), picture);
    return formatoFecha(momento.date(), momento.time(), picture);
}

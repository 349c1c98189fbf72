#include "reports/spool.h"

#include "basic/errores.h"
#include "basic/texto.h"
#include "shell/globales.h"

#include <QFile>

#include <cmath>
#include <memory>

// ---------------------------------------------------------------------------------------------
// Windows-1252.

namespace {

// Code points of bytes 0x80 to 0x9F; 0 where the code page leaves the byte undefined.
constexpr char16_t kAltos1252[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

char byte1252(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (int i = 0; i < 32; ++i)
        if (kAltos1252[i] != 0 && kAltos1252[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QByteArray aCp1252(const QString& texto)
{
    QByteArray salida;
    salida.reserve(texto.size());
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        if (c.isHighSurrogate() && i + 1 < texto.size() && texto.at(i + 1).isLowSurrogate()) {
            salida.append('?');   // one character outside the code page, one "?"
            ++i;
            continue;
        }
        salida.append(byte1252(c.unicode()));
    }
    return salida;
}

QString deCp1252(const QByteArray& bytes)
{
    QString salida;
    salida.reserve(bytes.size());
    for (char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        if (u >= 0x80 && u < 0xA0) {
            const char16_t c = kAltos1252[u - 0x80];
            salida.append(QChar(c ? c : char16_t(u)));   // undefined bytes keep their C1 code
        } else {
            salida.append(QChar(char16_t(u)));
        }
    }
    return salida;
}

// ---------------------------------------------------------------------------------------------
// Writer.

namespace {

std::unique_ptr<QFile> g_archivo;
SalidaDirectaRpt* g_salidaDirecta = nullptr;

qint16 suma16(qint16 valor, int incremento)
{
    const int r = valor + incremento;
    if (r < -32768 || r > 32767)
        throw errorDesbordamiento();
    return static_cast<qint16>(r);
}

bool aArchivo() { return G().gsDestinoRpt == QLatin1String("ARCHIVO"); }

void escribeLinea(const QString& linea)
{
    if (!aArchivo()) {
        if (g_salidaDirecta)
            g_salidaDirecta->imprimir(linea);
        return;
    }
    if (!g_archivo || !g_archivo->isOpen())
        throw ErrorVB(52, QStringLiteral("Nombre o número de archivo incorrecto"));
    QByteArray bytes = aCp1252(linea);
    bytes.append("\r\n", 2);
    if (g_archivo->write(bytes) != bytes.size())
        throw ErrorVB(57, QStringLiteral("Error de E/S de dispositivo"));
}

void escribeSalto()
{
    if (!aArchivo()) {
        if (g_salidaDirecta)
            g_salidaDirecta->nuevaPagina();
        return;
    }
    escribeLinea(QStringLiteral("pNuevaHoja"));
}

bool esDirectiva(const QString& texto) { return texto.startsWith(QLatin1String("<!")); }

} // namespace

void instalarSalidaDirectaRpt(SalidaDirectaRpt* salida) { g_salidaDirecta = salida; }

void pAbreArchivoRpt()
{
    pCierraArchivoRpt();
    auto archivo = std::make_unique<QFile>(G().gsRutaRpt);
    if (!archivo->open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw ErrorVB(75, QStringLiteral("Error de acceso a la ruta o al archivo"));
    g_archivo = std::move(archivo);
    G().gnArchivoRpt = 1;   // the first free file number
}

void pCierraArchivoRpt()
{
    if (g_archivo) {
        g_archivo->close();
        g_archivo.reset();
    }
}

bool archivoRptAbierto() { return g_archivo && g_archivo->isOpen(); }

void pLinea(const QString& textoDado)
{
    Globales& g = G();
    QString texto = textoDado;
    if (!esDirectiva(texto)) {
        g.gnPosLinea = suma16(g.gnPosLinea, 175);
        texto = QStringLiteral("pPos|10|") + QString::number(g.gnPosLinea) + QLatin1Char('|') + texto
                + QStringLiteral("|False|8|") + QString::number(suma16(g.gnHojaRpt, -1)) + QLatin1Char('|');
    } else if (g.gnHojaRpt > 1) {
        return;   // directives go out on the first page of the first copy only
    }
    escribeLinea(texto);
    g.gnLineaRpt = suma16(g.gnLineaRpt, 1);
    const int limite = g.gnLineasHoja < 83 ? 85 : 83;
    if (g.gnLineaRpt >= limite) {
        g.gnLineaRpt = 0;
        g.gnHojaRpt = suma16(g.gnHojaRpt, 1);
        escribeSalto();
    }
}

void pPosLinea(qint16 x, qint16 y, const QString& texto, qint16 negrita, qint16 tamano, qint16 hoja)
{
    if (texto == QLatin1String("pNuevaHoja")) {
        escribeSalto();
        return;
    }
    if (esDirectiva(texto)) {
        if (G().gnHojaRpt > 1)
            return;
        escribeLinea(texto);
        return;
    }
    QString linea = QStringLiteral("pPos|");
    linea += QString::number(x) + QLatin1Char('|') + QString::number(y) + QLatin1Char('|') + texto;
    linea += negrita == -1 ? QStringLiteral("|True|") : QStringLiteral("|False|");
    linea += QString::number(tamano) + QLatin1Char('|') + QString::number(hoja) + QLatin1Char('|');
    escribeLinea(linea);
}

void pCuadroLinea(qint16 x1, qint16 y1, qint16 x2, qint16 y2, qint16 hoja)
{
    QString linea = QStringLiteral("pCuadro|");
    for (qint16 v : {x1, y1, x2, y2, hoja})
        linea += QString::number(v) + QLatin1Char('|');
    escribeLinea(linea);
}

// ---------------------------------------------------------------------------------------------
// Reader.

bool cabezaLinea(const QString& linea, QString& cabeza, int& cursor)
{
    QString token;
    for (int i = 0; i < linea.size(); ++i) {
        token += linea.at(i);
        bool parar = false;
        if (token.endsWith(QLatin1Char('|'))) {
            token.chop(1);
            parar = true;
        } else if (token.endsWith(QLatin1String("!>")) || token.endsWith(QLatin1String("aHoja"))) {
            parar = true;
        }
        if (parar) {
            cabeza = Trim(token);
            cursor = i + 1;
            return true;
        }
    }
    return false;   // no stop pattern: the line says nothing
}

QString campoLinea(const QString& linea, int& cursor)
{
    const int fin = cursor <= linea.size() ? int(linea.indexOf(QLatin1Char('|'), cursor)) : -1;
    if (fin < 0) {
        const QString resto = cursor < linea.size() ? linea.mid(cursor) : QString();
        cursor = int(linea.size()) + 1;
        return resto;
    }
    const QString campo = linea.mid(cursor, fin - cursor);
    cursor = fin + 1;
    return campo;
}

namespace {

// Text from the cursor up to the closing tag (to the end of the line when it is missing).
QString valorDirectiva(const QString& linea, int cursor, const QString& cierre)
{
    const qsizetype fin = linea.indexOf(cierre, cursor);
    return fin < 0 ? linea.mid(cursor) : linea.mid(cursor, fin - cursor);
}

qint16 campoNumero(const QString& linea, int& cursor) { return CInt(Val(campoLinea(linea, cursor))); }

// A numeric literal as the runtime reads it: "&H00FFFFC0&" is hexadecimal, else decimal.
quint32 numeroColor(const QString& texto)
{
    if (texto.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) {
        quint32 v = 0;
        for (int i = 2; i < texto.size(); ++i) {
            const char16_t c = texto.at(i).toUpper().unicode();
            const int d = (c >= u'0' && c <= u'9') ? c - u'0' : (c >= u'A' && c <= u'F') ? c - u'A' + 10 : -1;
            if (d < 0)
                break;
            v = v * 16 + quint32(d);
        }
        return v;
    }
    // A decimal number keeps its integer part and its 32 bits (-1 is &HFFFFFFFF); one that no
    // colour can hold overflows.
    const double entero = std::trunc(Val(texto));
    if (!(entero >= -2147483648.0 && entero <= 4294967295.0))
        throw errorDesbordamiento();
    return static_cast<quint32>(static_cast<qint64>(entero));
}

ErrorVB errorElementoInexistente()
{
    return ErrorVB(340, QStringLiteral("El elemento 'picPrevia' de la matriz de controles no existe"));
}

// The array of page pictures of the screen: element 0 exists from the start; others are
// loaded at a given index (Load picPrevia(n)) and inherit the background of element 0.
struct MatrizPaginas {
    QList<PaginaDibujo>& paginas;
    void cargar(int indice)
    {
        if (indice < 0)
            throw errorElementoInexistente();
        if (indice < paginas.size() && paginas[indice].cargada)
            throw ErrorVB(360, QStringLiteral("El objeto ya está cargado"));
        while (paginas.size() <= indice) {
            PaginaDibujo hueco;
            hueco.cargada = false;
            paginas.append(hueco);
        }
        PaginaDibujo nueva;
        nueva.colorFondo = paginas[0].colorFondo;
        paginas[indice] = nueva;
    }
    PaginaDibujo& elemento(int indice)
    {
        if (indice < 0 || indice >= paginas.size() || !paginas[indice].cargada)
            throw errorElementoInexistente();
        return paginas[indice];
    }
};

} // namespace

DocumentoSpool reproduceSpool(const QStringList& lineas, bool impresora, const RangoHojas& rango,
                              qint16 nHojaActual)
{
    DocumentoSpool doc;
    doc.impresora = impresora;
    doc.nHojaActual = nHojaActual;
    doc.paginas.append(PaginaDibujo{});
    MatrizPaginas matriz{doc.paginas};
    int cuenta = 1;
    qint16 ultimaHoja = 0;    // page field of the last record read (printer breaks)
    bool apaisada = false;    // printer orientation in force

    try {
        for (const QString& linea : lineas) {
            QString cabeza;
            int cursor = 0;
            if (!cabezaLinea(linea, cabeza, cursor))
                continue;

            if (cabeza == QLatin1String("<!font!>")) {
                doc.fuente = valorDirectiva(linea, cursor, QStringLiteral("<!/font!>"));
            } else if (cabeza == QLatin1String("<!nHojas!>")) {
                doc.nHojaActual = 0;
            } else if (cabeza == QLatin1String("<!Color!>")) {
                if (!impresora) {
                    const quint32 color = numeroColor(Trim(valorDirectiva(linea, cursor, QStringLiteral("<!/Color!>"))));
                    if (color != doc.paginas[0].colorFondo)
                        doc.paginas[0].colorFondo = color;
                }
            } else if (cabeza == QLatin1String("<!Orientacion!>")) {
                doc.orientacion = Trim(valorDirectiva(linea, cursor, QStringLiteral("<!/Orientacion!>")));
                if (impresora) {
                    if (doc.orientacion == QLatin1String("H")) {
                        // The orientation cannot change within a page already begun (error
                        // 396): that statement is skipped and the replay goes on.
                        if (doc.paginas.last().comandos.isEmpty()) {
                            apaisada = true;
                            doc.paginas.last().apaisada = true;
                        }
                    }
                }
            } else if (cabeza == QLatin1String("pPos") || cabeza == QLatin1String("pPosVerti")
                       || cabeza == QLatin1String("pCuadro")) {
                ComandoDibujo c;
                if (cabeza == QLatin1String("pCuadro")) {
                    c.tipo = ComandoDibujo::Cuadro;
                    c.x = campoNumero(linea, cursor);
                    c.y = campoNumero(linea, cursor);
                    c.x2 = campoNumero(linea, cursor);
                    c.y2 = campoNumero(linea, cursor);
                    c.hoja = campoNumero(linea, cursor);
                } else {
                    c.tipo = cabeza == QLatin1String("pPos") ? ComandoDibujo::Texto : ComandoDibujo::TextoVertical;
                    c.x = campoNumero(linea, cursor);
                    c.y = campoNumero(linea, cursor);
                    c.texto = campoLinea(linea, cursor);
                    c.negrita = Trim(campoLinea(linea, cursor)) == QLatin1String("True");
                    c.tamano = campoNumero(linea, cursor);
                    c.hoja = campoNumero(linea, cursor);
                }
                ultimaHoja = c.hoja;

                if (impresora) {
                    if (rango.activo && !rango.contiene(c.hoja))
                        continue;
                    doc.paginas.last().comandos.append(c);
                    continue;
                }

                if (!rango.activo) {
                    if (c.hoja > 0 && c.hoja > doc.nHojaActual) {
                        matriz.cargar(c.hoja);
                        ++cuenta;
                        doc.nHojaActual = c.hoja;
                    }
                    PaginaDibujo& destino = matriz.elemento(c.hoja);
                    if (c.tipo != ComandoDibujo::TextoVertical)   // opens the page, draws nothing
                        destino.comandos.append(c);
                } else {
                    if (!rango.contiene(c.hoja))
                        continue;
                    if (c.hoja > doc.nHojaActual) {
                        if (rango.desde < 2 || doc.nHojaActual > 0) {
                            matriz.cargar(int(doc.paginas.size()));
                            ++cuenta;
                        }
                        doc.nHojaActual = c.hoja;
                    }
                    doc.paginas.last().comandos.append(c);
                }
            } else if (cabeza == QLatin1String("pNuevaHoja")) {
                if (impresora && (!rango.activo || rango.contiene(ultimaHoja))) {
                    PaginaDibujo nueva;
                    nueva.apaisada = apaisada;
                    doc.paginas.append(nueva);
                }
            }
        }
    } catch (const ErrorVB& e) {
        doc.error = e.numero;
        doc.descripcionError = e.descripcion;
        return doc;   // the count of pages is not taken: nTotHojas stays 1
    } catch (const std::bad_alloc&) {
        doc.error = kErrSinMemoria;
        doc.descripcionError = QStringLiteral("Memoria insuficiente");
        return doc;
    }
    doc.colorFondo = doc.paginas[0].colorFondo;
    doc.nTotHojas = static_cast<qint16>(impresora ? doc.paginas.size() : cuenta);
    return doc;
}

QString rutaSpool(const QString& nombre) { return G().gsPathRpt + QLatin1Char('/') + nombre; }

QStringList leeLineasSpool(const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw ErrorVB(kErrArchivoNoEncontrado, QStringLiteral("No se ha encontrado el archivo"));
    return lineasSpool(archivo.readAll());
}

QStringList lineasSpool(const QByteArray& contenido)
{
    const QString texto = deCp1252(contenido);
    QStringList lineas;
    qsizetype inicio = 0;
    const qsizetype n = texto.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = texto.at(i);
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            lineas.append(texto.mid(inicio, i - inicio));
            if (c == QLatin1Char('\r') && i + 1 < n && texto.at(i + 1) == QLatin1Char('\n'))
                ++i;
            inicio = i + 1;
        }
    }
    if (inicio < n)
        lineas.append(texto.mid(inicio));
    return lineas;
}

qint16 NumRegistros(const QString& nombre)
{
    QStringList lineas;
    try {
        lineas = leeLineasSpool(rutaSpool(nombre));
    } catch (const ErrorVB&) {
        return 0;
    }
    return numeroDeHojas(lineas);
}

qint16 numeroDeHojas(const QStringList& lineas)
{
    for (const QString& linea : lineas) {
        if (!linea.contains(QLatin1String("<!nHojas!>")))
            continue;
        // From character 11 up to just before the closing tag.
        const qsizetype fin = linea.indexOf(QLatin1String("<!/nHojas!>"));
        const QString numero = fin < 0 ? Mid(linea, 11) : Mid(linea, 11, int(fin) - 10);
        return CInt(Val(Trim(numero)));
    }
    return 0;
}

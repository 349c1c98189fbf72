#include "reports/informe.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/periodo.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "form931/casillas.h"
#include "reports/spool.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"
#include "store/param.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include <new>

namespace {

// ---------------------------------------------------------------------------------------------
// Loading.

QString texto(const QVariant& v) { return v.isNull() ? QString() : v.toString(); }

// The key of the declaration in hand: " WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND
// FORMULARIO=?" and, when sent, " AND CORREL=?".
struct Clave {
    QString sql;
    QVariantList valores;
};

Clave claveDeclaracion()
{
    const Globales& g = G();
    Clave k{QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?"),
            {g.gsRucRpt, g.gsPeriodoRpt, g.gsFormulario}};
    if (g.gbRptEnviada) {
        k.sql += QStringLiteral(" AND CORREL=?");
        k.valores << g.gsCorrelRpt;
    }
    return k;
}

} // namespace

void pConsulta()
{
    Globales& g = G();
    const bool enviada = g.gbRptEnviada != 0;
    const QString blanco = QStringLiteral(" ");
    g.gsTelefonoRpt = blanco;
    g.gsOrdenRpt = blanco;
    g.gsRepresentanteRpt = blanco;
    g.gsAsistenteRpt = blanco;
    g.gaNombradasRpt.clear();
    g.gaNombradasRpt.insert(200, blanco);

    const Clave clave = claveDeclaracion();
    if (enviada) {
        QSqlQuery q = ejecutar(QStringLiteral("SELECT NORDEN FROM HCAB") + clave.sql, clave.valores);
        if (q.next())
            g.gsOrdenRpt = texto(q.value(0));
    }

    g.gaCasillas = QVector<QString>(901);
    {
        QSqlQuery q = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM ") + (enviada ? "HDET" : "DET") + clave.sql
                                   + QStringLiteral(" ORDER BY CASILLA"),
                               clave.valores);
        while (q.next()) {
            const int casilla = static_cast<int>(Val(texto(q.value(0))));
            if (casilla < 1 || casilla >= 900)
                continue;
            const QString valor = texto(q.value(1));
            g.gaCasillas[casilla] = valor;
            // Casillas that also go to named texts.
            if (!tieneMarca(casilla, kNombrada))
                continue;
            g.gaNombradasRpt.insert(casilla, valor);
            if (casilla == 28)
                g.gsTelefonoRpt = valor;
            else if (casilla == 818)
                g.gsRepresentanteRpt = g.gaNombradasRpt.value(817) + QLatin1Char(' ') + valor;
        }
    }

    // The payment records are looked up by a four-character slice of PER_PAG against the
    // six-digit period, which never matches; the lookup stays as the family has it.
    QVariantList valores = clave.valores;
    valores << g.gsPeriodoRpt;
    QSqlQuery q = ejecutar(QStringLiteral("SELECT tipo_asist FROM ") + (enviada ? "HACTA" : "ACTA") + clave.sql
                               + QStringLiteral(" AND substr(PER_PAG, 1, 4)=?"),
                           valores);
    if (q.next() && texto(q.value(0)) == QLatin1String("4"))
        g.gsAsistenteRpt = QStringLiteral("128");
}

// ---------------------------------------------------------------------------------------------
// Building.

namespace {

constexpr int kPaso = 270;          // one row
constexpr int kSobreTexto = 50;     // a row's boxes start this far above its text
constexpr int kAltoFila = 270;      // box height of a row
constexpr qint16 kBold = -1;

qint16 cuerpo() { return G().gnTamLetra; }   // size of the body lines (never assigned: 0)

void texto(int x, int y, const QString& t, bool negrita, qint16 tamano, qint16 hoja)
{
    pPosLinea(qint16(x), qint16(y), t, negrita ? kBold : qint16(0), tamano, hoja);
}

void cuadro(int x1, int y1, int x2, int y2, qint16 hoja)
{
    pCuadroLinea(qint16(x1), qint16(y1), qint16(x2), qint16(y2), hoja);
}

QString casilla(int n) { return G().gaCasillas.value(n); }
QString nombrada(int n) { return G().gaNombradasRpt.value(n); }
QString ajusta(const QString& t, int ancho) { return gobjUtil().AjustaColumna(t, ancho); }

// Running position of one page: y is the text line, boxes go from y - 50 down one row (or
// `filas` rows).
struct Pagina {
    qint16 hoja;
    int y;

    void avanza(int filas = 1) { y += kPaso * filas; }
    void caja(int x1, int x2, int filas = 1) const
    {
        cuadro(x1, y - kSobreTexto, x2, y - kSobreTexto + kAltoFila + kPaso * (filas - 1), hoja);
    }

    // A title across the whole width (or to x2).
    void titulo(const QString& t, bool negrita = true, qint16 tamano = -1, int x2 = 11000)
    {
        texto(300, y, t, negrita, tamano < 0 ? cuerpo() : tamano, hoja);
        caja(150, x2);
        avanza();
    }

    // Label, casilla number and figure: the three row shapes differ only in their columns.
    struct Columnas {
        int xEtiqueta, e1, e2, xNumero, n1, n2, xFigura, f1, f2;
    };
    void fila(const Columnas& c, const QString& etiqueta, const QString& numero, const QString& figura)
    {
        texto(c.xEtiqueta, y, etiqueta, false, cuerpo(), hoja);
        caja(c.e1, c.e2);
        texto(c.xNumero, y, numero, false, cuerpo(), hoja);
        caja(c.n1, c.n2);
        texto(c.xFigura, y, figura, false, cuerpo(), hoja);
        caja(c.f1, c.f2);
        avanza();
    }

    // A row of text with a value: whole-width box, the number's box when there is a number,
    // and the value padded to 16 in the figure box.
    void valor(const QString& etiqueta, const QString& v, int xValor = 9000, const QString& numero = QString())
    {
        valorEn(etiqueta, v, xValor, numero, true);
    }
    // A description that starts left of the figure column runs across it: no figure box, or
    // its line would cut the text.
    void descripcion(const QString& etiqueta, const QString& v) { valorEn(etiqueta, v, 6700, QString(), false); }

    void valorEn(const QString& etiqueta, const QString& v, int xValor, const QString& numero, bool cajaFigura)
    {
        texto(300, y, etiqueta, false, cuerpo(), hoja);
        caja(150, 11000);
        if (!numero.isEmpty()) {
            texto(8550, y, numero, false, cuerpo(), hoja);
            caja(8500, 8900);
        }
        texto(xValor, y, ajusta(v, 16), false, cuerpo(), hoja);
        if (cajaFigura)
            caja(8900, 11000);
        avanza();
    }
};

constexpr Pagina::Columnas kBalance{300, 150, 8500, 8550, 8500, 8900, 9000, 8900, 11000};
constexpr Pagina::Columnas kResultados{300, 150, 6000, 6050, 6000, 6400, 6500, 6400, 8500};
constexpr Pagina::Columnas kImpuesto{300, 150, 11000, 8550, 8500, 8900, 9000, 8900, 11000};
constexpr Pagina::Columnas kAnexo{250, 150, 8500, 8520, 8500, 8900, 9100, 8900, 11000};

// The lines of the boxes of a block of the printed declaration, with the report's labels.
void filas(Pagina& p, const Pagina::Columnas& columnas, BloqueInforme bloque)
{
    for (const DefCasilla* d : casillasDelBloque(bloque))
        p.fila(columnas, QString::fromUtf8(d->etiquetaInforme), QString::number(d->numero), FiguraInforme(casilla(d->numero)));
}

void filasAnexo(Pagina& p, BloqueInforme bloque)
{
    for (const DefCasilla* d : casillasDelBloque(bloque)) {
        const QString v = casilla(d->numero);
        const QString figura = RellenaIzq(Format(v, Mascara::Totales), Val(v) < 0 ? 16 : 15);
        p.fila(kAnexo, QString::fromUtf8(d->etiquetaInforme), QString::number(d->numero), figura);
    }
}

// "SI" for "1", "NO" otherwise, a blank when there is no answer.
QString siNo(const QString& v)
{
    if (v.isEmpty())
        return QStringLiteral(" ");
    return v == QLatin1String("1") ? QStringLiteral("SI") : QStringLiteral("NO");
}

QString siNoSi(bool si) { return si ? QStringLiteral("SI") : QStringLiteral("NO"); }

QString descripcionUbigeo(const QString& codigo)
{
    const QString separador = QStringLiteral(" - ");
    return DescDepartamento(codigo) + separador + DescProvincia(codigo) + separador + DescDistrito(codigo);
}

int anhoInforme() { return static_cast<int>(Val(Left(G().gsPeriodoRpt, 4))); }

void inicioPagina(qint16 hoja)
{
    if (hoja != 0)
        pPosLinea(0, 0, QStringLiteral("pNuevaHoja"), 0, 0, hoja);
    pCabecera(hoja);
}

// Column heads of the balance pages 1 and 2: a double-height row, then the balance date.
Pagina cabezaBalance(qint16 hoja, const QString& rubro)
{
    Pagina p{hoja, 2240};
    texto(3400, p.y, rubro, false, cuerpo(), hoja);
    p.caja(150, 8500, 2);
    texto(9000, p.y, QStringLiteral("     Valor"), false, cuerpo(), hoja);
    p.caja(8500, 11000, 2);
    p.avanza();
    texto(8750, p.y, FechaBalance(G().gsPeriodoRpt), false, cuerpo(), hoja);
    p.avanza();
    return p;
}

} // namespace

QString FechaBalance(const QString& periodo)
{
    const QString mes = mesDelPeriodo(periodo);
    if (mes == QLatin1String("01"))
        return QStringLiteral("   Al 31 de Enero");
    if (mes == QLatin1String("06"))
        return QStringLiteral("   Al 30 de Junio");
    return QString();
}

QString RellenaIzq(const QString& texto, int ancho)
{
    static const QString blancos(80, QLatin1Char(' '));
    if (texto.size() >= ancho)
        return texto;
    return blancos.left(ancho - texto.size()) + texto;
}

QString FiguraInforme(const QString& valor)
{
    return ajusta(Format(valor, Mascara::Totales), Val(valor) < 0 ? 17 : 16);
}

QString MascaraCoeficiente(const QString& periodo, const QString& sistema)
{
    const QString cuatro = QStringLiteral("###,###,##0.0000;(###,###,##0.0000)");
    const QString dos = QStringLiteral("###,###,##0.00;(###,###,##0.00)");
    const bool anual = sistema == QLatin1String("A");
    const QString mes = mesDelPeriodo(periodo);
    if (Val(Left(periodo, 4)) < 2013 || mes == QLatin1String("01") || mes == QLatin1String("06"))
        return anual ? cuatro : dos;
    return QStringLiteral("###,###,##0.###0;(###,###,##0.###0)");
}

void pCabecera(qint16 hoja)
{
    Globales& g = G();
    const qint16 c = cuerpo();
    texto(300, 350, QStringLiteral("TAVEN"), true, 16, hoja);
    texto(300, 750, QStringLiteral("DECLARACIÓN"), false, 8, hoja);
    texto(550, 1100, QStringLiteral("PAGO"), false, 8, hoja);
    texto(550, 1330, QStringLiteral("931"), true, 12, hoja);
    cuadro(150, 300, 1700, 1640, hoja);
    texto(3000, 400, QStringLiteral("MODIFICACIÓN DE COEFICIENTE O PORCENTAJE"), true, 9, hoja);
    texto(3750, 830,
          QStringLiteral("Ejercicio gravable ") + mesDelPeriodo(g.gsPeriodoRpt) + QLatin1Char('/') + Mid(g.gsPeriodoRpt, 1, 4),
          false, 8, hoja);
    cuadro(1700, 300, 8500, 1100, hoja);
    texto(1750, 1170, QStringLiteral("RUC"), false, c, hoja);
    texto(3500, 1170, g.gsRucRpt, true, c, hoja);
    cuadro(1700, 1100, 3400, 1370, hoja);
    cuadro(3400, 1100, 8500, 1370, hoja);
    texto(1750, 1450, QStringLiteral("RAZÓN SOCIAL"), false, c, hoja);
    texto(3500, 1450, g.gsNombreRpt, true, c, hoja);
    cuadro(1700, 1370, 3400, 1640, hoja);
    cuadro(3400, 1370, 8500, 1640, hoja);
    texto(9000, 400, QStringLiteral("Copia para el"), false, c, hoja);
    texto(9000, 700, QStringLiteral("Contribuyente(") + QString::number(hoja + 1) + QLatin1Char(')'), false, 9, hoja);
    cuadro(8500, 300, 11000, 1100, hoja);
    cuadro(8500, 1100, 11000, 1640, hoja);
    texto(8700, 1170, QStringLiteral(" N° DE TELEFONO"), false, c, hoja);
    texto(9000, 1450, g.gsTelefonoRpt, false, c, hoja);
    cuadro(8500, 1100, 11000, 1370, hoja);

    g.gnPosTexto = 2000;
    g.gnPosCuadro = 1950;
    if (g.gbRptEnviada) {
        texto(300, 1730, QStringLiteral("Nro. Control:"), false, c, hoja);
        cuadro(150, 1680, 2800, 1950, hoja);
        texto(1600, 1730, ajusta(g.gsControlRpt, 10), false, c, hoja);
        texto(8700, 1730, QStringLiteral("Nro. Orden:"), false, c, hoja);
        texto(9800, 1730, ajusta(g.gsOrdenRpt, 10), false, c, hoja);
        cuadro(8500, 1680, 11000, 1950, hoja);
    }
}

void pHojaActivo(qint16 hoja)
{
    pLinea(QStringLiteral("<!font!>Courier New<!/font!>"));
    pLinea(QStringLiteral("<!nHojas!>") + QString::number(kHojasDeclaracion) + QStringLiteral("<!/nHojas!>"));
    pLinea(QStringLiteral("<!Orientacion!>V<!/Orientacion!>"));
    pLinea(QStringLiteral("<!Color!>&H00FFFFC0&<!/Color!>"));
    inicioPagina(hoja);

    Pagina p{hoja, G().gnPosTexto};
    p.titulo(QStringLiteral("1.-  ESTADOS FINANCIEROS"), true, 9);
    p.titulo(QStringLiteral("I.-Balance General "), false);
    texto(3400, p.y, QStringLiteral("ACTIVO"), false, cuerpo(), hoja);
    p.caja(150, 8500, 2);
    texto(9000, p.y, QStringLiteral("     Valor"), false, cuerpo(), hoja);
    p.caja(8500, 11000, 2);
    p.avanza();
    texto(8750, p.y, FechaBalance(G().gsPeriodoRpt), false, cuerpo(), hoja);
    p.avanza();
    filas(p, kBalance, BloqueInforme::Activo);
}

void pHojaPasivo(qint16 hoja)
{
    inicioPagina(hoja);
    Pagina p = cabezaBalance(hoja, QStringLiteral("PASIVO"));
    filas(p, kBalance, BloqueInforme::Pasivo);
}

void pHojaPatrimonio(qint16 hoja)
{
    inicioPagina(hoja);
    Pagina p = cabezaBalance(hoja, QStringLiteral("PATRIMONIO"));
    filas(p, kBalance, BloqueInforme::Patrimonio);

    p.avanza();
    p.titulo(QStringLiteral("II.-Estado de Pérdidas y Ganancias-Valores"), false, -1, 8500);
    texto(6900, p.y, QStringLiteral("Importe"), false, cuerpo(), hoja);
    p.caja(150, 6000, 2);
    p.caja(6000, 8500, 2);
    p.avanza();
    texto(6250, p.y, FechaBalance(G().gsPeriodoRpt), false, cuerpo(), hoja);
    p.avanza();
    filas(p, kResultados, BloqueInforme::Resultados);
}

void pHojaRenta(qint16 hoja)
{
    inicioPagina(hoja);
    const Globales& g = G();
    const int anho = anhoInforme();
    Pagina p{hoja, 2240};

    p.titulo(QStringLiteral("1.-  DETERMINACION DEL IMPUESTO A LA RENTA"), true, 9);
    filas(p, kImpuesto, BloqueInforme::Renta);
    filas(p, kImpuesto, BloqueInforme::Mype);
    const QString c610 = nombrada(610);
    const QString coeficiente = ajusta(Format(c610, MascaraCoeficiente(g.gsPeriodoRpt, nombrada(609))), Val(c610) < 0 ? 17 : 16);
    p.fila(kImpuesto, QStringLiteral("Modificación del coeficiente o porcentaje"), QStringLiteral("610"), coeficiente);

    p.titulo(QStringLiteral("2.-  IDENTIFICACIÓN"), true, 9);
    p.titulo(QStringLiteral("DATOS GENERALES"));

    const QString regimen = Trim(casilla(56));
    if (regimen == QLatin1String("4") || regimen == QLatin1String("8")) {
        p.titulo(regimen == QLatin1String("4") ? QStringLiteral("REGIMEN GENERAL") : QStringLiteral("REGIMEN MYPE TRIBUTARIO"));
        const QString c813 = nombrada(813);
        const QString persona = c813.isEmpty()                 ? QStringLiteral(" ")
                                : c813 == QLatin1String("0")   ? QStringLiteral("P.Jurídica")
                                                               : QStringLiteral("P.Natural");
        p.valor(QStringLiteral("Tipo de persona"), persona, 8750);
    } else if (regimen == QLatin1String("1")) {
        p.titulo(QStringLiteral("REGIMEN AGRARIO"));
        p.valor(QStringLiteral("Fecha de Presentación del formulario 4888 "), FechaTexto(casilla(200)), 9000,
                QStringLiteral("200"));
    } else if (regimen == QLatin1String("2")) {
        p.titulo(QStringLiteral("REGIMEN DE LA AMAZONIA"));
        p.valor(QStringLiteral("Acogimiento a la Ley de la Amazonía"), siNo(nombrada(810)));
        p.valor(QStringLiteral("Contribuyente Ubicado en la Amazonía"), siNo(nombrada(809)));
        p.titulo(QStringLiteral("Domicilio Fiscal"));
        p.valor(QStringLiteral("Domicilio Fiscal ubicado en la Amazonía junto con su Administración y Contabilidad"),
                siNo(nombrada(860)));
        p.valor(QStringLiteral("Zona a la que corresponde la ubicación de su domicilio"),
                nombrada(811) == QLatin1String("0") ? QStringLiteral("ZONA 1") : QStringLiteral("ZONA 2"));
        p.valor(QStringLiteral("Ubicación Geográfica de su Domicilio Fiscal"), casilla(812), 9000, QStringLiteral("812"));
        p.descripcion(QStringLiteral("Descripción de Ubicación Geográfica de su Domicilio Fiscal"), descripcionUbigeo(casilla(812)));
    } else if (regimen == QLatin1String("3")) {
        p.titulo(QStringLiteral("ZONA DE FRONTERA"));
        p.valor(QStringLiteral("Se dedica a la actividad industrial"), siNo(nombrada(601)));
        p.titulo(QStringLiteral("Domicilio fiscal"));
        p.valor(QStringLiteral("Domicilio Fiscal ubicado en la zona de frontera"), siNo(nombrada(602)));
        p.valor(QStringLiteral("Ubicación Geográfica de su Domicilio Fiscal"), nombrada(603), 9000, QStringLiteral("603"));
        p.descripcion(QStringLiteral("Descripción de Ubicación Geográfica de su Domicilio Fiscal"), descripcionUbigeo(nombrada(603)));
    } else if (regimen == QLatin1String("6")) {
        p.titulo(QStringLiteral("CONVENIO DE ESTABILIDAD"));
        const QString c804 = nombrada(804);
        QString convenio;
        if (c804 == QLatin1String("1"))
            convenio = QStringLiteral("Estabilidad tributaria");
        else if (c804 == QLatin1String("2"))
            convenio = QStringLiteral("Garantias y medidas de promoción a la inversión");
        else if (c804 == QLatin1String("3"))
            convenio = QStringLiteral("Estabilidad jurídica");
        else if (c804 == QLatin1String("4"))
            convenio = QStringLiteral("Contratos de licencia de exploración y explotación de hidrocarburos");
        if (!convenio.isEmpty()) {
            p.valor(convenio, QStringLiteral("SI"));
            p.valor(QStringLiteral("Número de Orden del Formulario 2305"), casilla(224), 9000, QStringLiteral("224"));
        }
    }

    // Payment mode.
    p.titulo(anho < 2013 ? QStringLiteral("3. SISTEMA DE PAGO") : QStringLiteral("3. MODALIDAD DE PAGO"), true, 9);
    const QString c605 = nombrada(605);
    p.valor(QStringLiteral("¿Ha Iniciado sus actividades en el ejercicio?"), siNoSi(c605 == QLatin1String("1")));
    p.titulo(QStringLiteral("Resultado del ejercicio"));
    if (c605 == QLatin1String("0")) {
        const QString c607 = nombrada(607), c606 = nombrada(606);
        p.titulo(QStringLiteral("Ejercicio anterior"));
        p.valor(QStringLiteral("Utilidad"), siNoSi(c607 == QLatin1String("0")));
        p.valor(QStringLiteral("Pérdida"), siNoSi(c607 == QLatin1String("1")));
        p.titulo(QStringLiteral("Ejercicio precedente al anterior"));
        p.valor(QStringLiteral("Utilidad"), siNoSi(c606 == QLatin1String("0")));
        p.valor(QStringLiteral("Pérdida"), siNoSi(c606 == QLatin1String("1")));
    }
    const QString c608 = nombrada(608);
    QString fecha;
    if (c608 == QLatin1String("0"))
        fecha = anho < 2013 ? QStringLiteral("31 de enero") : QStringLiteral("30 de abril");
    else if (c608 == QLatin1String("1"))
        fecha = anho < 2013 ? QStringLiteral("30 de junio") : QStringLiteral("31 de julio");
    p.valor(QStringLiteral("Fecha de balance"), fecha);
    if (anho < 2013)
        p.valor(QStringLiteral("Sistema de pago"), nombrada(609));

    // Annexes.
    p.avanza();
    if (!casillasDelBloque(BloqueInforme::Anexo473, anho).isEmpty()) {
        p.titulo(QStringLiteral("ASISTENTE CASILLA 473"));
        filasAnexo(p, BloqueInforme::Anexo473);
    }
    p.titulo(QStringLiteral("ASISTENTE CASILLA 477"));
    filasAnexo(p, BloqueInforme::Anexo477);
}

namespace {

// Head of one block of the loss table, three rows high; `desplazamiento` 0 or 4000.
void cabezaPerdidas(const Pagina& p, int desplazamiento)
{
    const int d = desplazamiento;
    texto(d + 200, p.y, QStringLiteral("   Año"), false, cuerpo(), p.hoja);
    p.caja(d + 150, d + 1350, 3);
    texto(d + 1700, p.y, QStringLiteral("Importe consignado"), false, cuerpo(), p.hoja);
    texto(d + 1700, p.y + kPaso, QStringLiteral("en la DDJJ anual"), false, cuerpo(), p.hoja);
    p.caja(d + 1350, d + 4150, 3);
}

} // namespace

void pHojaComplementaria(qint16 hoja)
{
    inicioPagina(hoja);
    const Globales& g = G();
    Pagina p{hoja, 2340};

    p.titulo(QStringLiteral("4.-  INFORMACION COMPLEMENTARIA"), true, 9);
    p.titulo(QStringLiteral("INFORMACION GENERAL"));
    p.titulo(QStringLiteral("Datos del Contador"), false);
    p.valor(QStringLiteral("Apellidos"), nombrada(815), 8950);
    p.valor(QStringLiteral("Nombres"), nombrada(816), 8950);
    p.valor(QStringLiteral("Código de zona de la colegiatura o registro"), Format(casilla(209), QStringLiteral("0#")), 9000,
            QStringLiteral("209"));
    p.valor(QStringLiteral("RUC"), casilla(208), 9000, QStringLiteral("208"));
    p.valor(QStringLiteral("C. P. C.  Nro."), casilla(211), 9000, QStringLiteral("211"));
    p.valor(QStringLiteral("C. M. A.  Nro."), casilla(212), 9000, QStringLiteral("212"));
    p.titulo(QStringLiteral("Datos del Representante Legal"));
    p.valor(QStringLiteral("Tipo de Documento"), casilla(225), 9000, QStringLiteral("225"));
    p.valor(QStringLiteral("Número de Documento"), casilla(226), 9000, QStringLiteral("226"));
    p.valor(QStringLiteral("Apellidos"), nombrada(817), 8950);
    p.valor(QStringLiteral("Nombres"), nombrada(818), 8950);

    p.avanza();
    p.titulo(QStringLiteral("PERDIDA TRIBUTARIA COMPENSABLE DE EJERCICIOS ANTERIORES"), true, -1, 8150);

    // Carried-forward losses: two blocks of five rows side by side, ten rows at most.
    const int yCabeza = p.y;
    cabezaPerdidas(p, 0);
    p.avanza(3);
    QString sql = QStringLiteral("SELECT Anho, Importe FROM ") + (g.gbEnviada ? "HF0931_PTCEA" : "F0931_PTCEA")
                  + QStringLiteral(" WHERE Doc_id_d=? AND Tip_doc_d=6 AND Periodo=? AND Formulario=?");
    QVariantList valores{g.gsRucRpt, g.gsPeriodoRpt, g.gsFormulario};
    if (g.gbEnviada) {
        sql += QStringLiteral(" AND CORREL=?");
        valores << g.gsCorrelRpt;
    }
    sql += QStringLiteral(" ORDER BY Anho");
    QSqlQuery q = ejecutar(sql, valores);
    int desplazamiento = 0;
    for (int fila = 1; fila <= 10 && q.next(); ++fila) {
        if (fila == 6) {
            desplazamiento = 4000;
            p.y = yCabeza;
            cabezaPerdidas(p, desplazamiento);
            p.avanza(3);
        }
        const int d = desplazamiento;
        texto(d + 250, p.y, ajusta(texto(q.value(0)), 16), false, cuerpo(), hoja);
        p.caja(d + 150, d + 1350);
        texto(d + 2100, p.y, ajusta(Format(texto(q.value(1)), Mascara::Positivo), 16), false, cuerpo(), hoja);
        p.caja(d + 1350, d + 4150);
        p.avanza();
    }
}

void pGeneraDeclaracion(const QString& ruc)
{
    Q_UNUSED(ruc);   // the declaration is the one loaded by pConsulta
    Globales& g = G();
    const bool aArchivo = g.gsDestinoRpt == QLatin1String("ARCHIVO");
    if (aArchivo) {
        pAbreArchivoRpt();
        g.gnHojaRpt = 0;
    }
    for (int copia = 1; copia <= g.gnCopiasRpt; ++copia) {
        g.gnLineaRpt = 0;
        g.gnHojaRpt = 1;
        pHojaActivo(0);
        pHojaPasivo(1);
        pHojaPatrimonio(2);
        pHojaRenta(3);
        pHojaComplementaria(4);
    }
    if (aArchivo)
        pCierraArchivoRpt();
}

bool pImprimeReporte(const QString& texto)
{
    Q_UNUSED(texto);
    Globales& g = G();
    g.gnLineasHoja = 104;
    g.gnCopiasRpt = 1;
    // The direct-print font belongs to the run, not to a printer: a report written to a file
    // (the preview, a PDF) needs no printer installed.
    g.gvFuenteNombre = QStringLiteral("Courier New");
    g.gvFuenteTam = 8;
    g.gvFuenteNegrita = false;

    int numero = 0;
    QString descripcion;
    try {
        if (g.gnTipoRpt == 1) {
            if (g.gsDestinoRpt == QLatin1String("IMPRESORA"))
                g.gnCopiasRpt = 2;
        } else if (g.gnTipoRpt == 2) {
            pGeneraDeclaracion(g.gsRucRpt);
        }
    } catch (const ErrorVB& e) {
        numero = e.numero;
        descripcion = e.descripcion;
    } catch (const std::bad_alloc&) {
        numero = kErrSinMemoria;
        descripcion = QStringLiteral("Memoria insuficiente");
    }
    pCierraArchivoRpt();
    if (numero == 0)
        return true;

    const QString titulo = QStringLiteral("Impresión");
    switch (numero) {
    case kErrArchivoNoEncontrado:   // resumes: nothing to tell
    case 2055:
    case kErrArchivoAbierto:
        break;
    case 20545:
        MsgBox(QStringLiteral("La Impresión ha sido Cancelada."), vbCritical, titulo);
        break;
    case kErrSinImpresora:
        MsgBox(QStringLiteral("No existe una impresora seleccionada.Verifique."), vbCritical, titulo);
        break;
    case kErrValorPropiedad:
        MsgBox(QStringLiteral("No Existe Información a Imprimir.Verifique."), vbCritical, titulo);
        break;
    default:
        MsgBox(QStringLiteral("Error Técnico : (") + QString::number(numero) + QStringLiteral(") ") + descripcion, vbCritical,
               titulo);
        break;
    }
    return false;
}

// Spool files: the writer's bytes, the reader's tokens, and the page rules of the screen and
// the printer replays.
#include "basic/errores.h"
#include "reports/spool.h"
#include "shell/globales.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class Escritor : public ::testing::Test {
protected:
    QTemporaryDir dir;
    void SetUp() override
    {
        G().reiniciar();
        G().gsDestinoRpt = QStringLiteral("ARCHIVO");
        G().gsRutaRpt = dir.filePath(QStringLiteral("x.PRN"));
        G().gnLineasHoja = 104;
        G().gnHojaRpt = 1;
        pAbreArchivoRpt();
    }
    void TearDown() override
    {
        pCierraArchivoRpt();
        G().reiniciar();
    }
    QByteArray bytes()
    {
        pCierraArchivoRpt();
        QFile f(G().gsRutaRpt);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }
};

} // namespace

TEST(Cp1252, LetrasDelInformeYFueraDeLaTabla)
{
    struct Caso {
        QString texto;
        QByteArray bytes;
    } casos[] = {
        {QStringLiteral("Ó"), "\xD3"},
        {QStringLiteral("N° DE"), "N\xB0 DE"},
        {QStringLiteral("¿Ha"), "\xBFHa"},
        {QStringLiteral("Año"), "A\xF1o"},
        {QStringLiteral("€ – “x”"), "\x80 \x96 \x93x\x94"},
        {QStringLiteral("Ω"), "?"},
        {QString::fromUtf8("a\xF0\x9F\x98\x80z"), "a?z"},   // one character outside: one "?"
    };
    for (const auto& c : casos) {
        EXPECT_EQ(aCp1252(c.texto), c.bytes) << c.texto.toStdString();
        if (!c.bytes.contains('?'))
            EXPECT_EQ(deCp1252(c.bytes), c.texto);
    }
    EXPECT_EQ(deCp1252(QByteArray("\x81")), QString(QChar(0x81)));   // undefined byte
}

TEST_F(Escritor, RegistrosByteAByte)
{
    pPosLinea(300, 2270, QStringLiteral("Caja y Bancos"), 0, 0, 0);
    pPosLinea(3500, 1170, QStringLiteral("DECLARACIÓN"), -1, 16, 4);
    pPosLinea(-5, 0, QStringLiteral("  "), 1, 9, 2);   // only -1 is bold
    pCuadroLinea(150, 1950, 8500, 2220, 0);
    pPosLinea(0, 0, QStringLiteral("pNuevaHoja"), 0, 0, 1);
    pPosLinea(0, 0, QStringLiteral("<!Color!>&H00FFFFC0&<!/Color!>"), 0, 0, 0);
    EXPECT_EQ(bytes(), QByteArray("pPos|300|2270|Caja y Bancos|False|0|0|\r\n"
                                  "pPos|3500|1170|DECLARACI\xD3N|True|16|4|\r\n"
                                  "pPos|-5|0|  |False|9|2|\r\n"
                                  "pCuadro|150|1950|8500|2220|0|\r\n"
                                  "pNuevaHoja\r\n"
                                  "<!Color!>&H00FFFFC0&<!/Color!>\r\n"));
}

TEST_F(Escritor, DirectivasSoloEnLaPrimeraHoja)
{
    pLinea(QStringLiteral("<!nHojas!>5<!/nHojas!>"));
    G().gnHojaRpt = 2;
    pLinea(QStringLiteral("<!font!>Courier New<!/font!>"));
    pPosLinea(0, 0, QStringLiteral("<!Orientacion!>V<!/Orientacion!>"), 0, 0, 0);
    EXPECT_EQ(bytes(), QByteArray("<!nHojas!>5<!/nHojas!>\r\n"));
    EXPECT_EQ(G().gnLineaRpt, 1);
}

TEST_F(Escritor, LineaCrudaBajaDeA175YCambiaDeHoja)
{
    // 83 lines a page when 83 or more are set; the break follows the 83rd line.
    for (int i = 0; i < 84; ++i)
        pLinea(QStringLiteral("L%1").arg(i));
    const QList<QByteArray> lineas = bytes().split('\n');
    EXPECT_EQ(lineas[0], QByteArray("pPos|10|175|L0|False|8|0|\r"));
    EXPECT_EQ(lineas[1], QByteArray("pPos|10|350|L1|False|8|0|\r"));
    EXPECT_EQ(lineas[82], QByteArray("pPos|10|14525|L82|False|8|0|\r"));
    EXPECT_EQ(lineas[83], QByteArray("pNuevaHoja\r"));
    EXPECT_EQ(lineas[84], QByteArray("pPos|10|14700|L83|False|8|1|\r"));   // y keeps running
    EXPECT_EQ(G().gnHojaRpt, 2);
    EXPECT_EQ(G().gnLineaRpt, 1);
}

TEST_F(Escritor, LimiteDe85ConMenosDe83LineasPorHoja)
{
    G().gnLineasHoja = 82;
    for (int i = 0; i < 85; ++i)
        pLinea(QStringLiteral("x"));
    const QList<QByteArray> lineas = bytes().split('\n');
    EXPECT_EQ(lineas[84], QByteArray("pPos|10|14875|x|False|8|0|\r"));
    EXPECT_EQ(lineas[85], QByteArray("pNuevaHoja\r"));
}

TEST(Escritura, DestinoDirectoRecibeElTextoDelRegistro)
{
    struct Salida : SalidaDirectaRpt {
        QStringList lineas;
        void imprimir(const QString& t) override { lineas << t; }
        void nuevaPagina() override { lineas << QStringLiteral("<salto>"); }
    } salida;
    G().reiniciar();
    G().gsDestinoRpt = QStringLiteral("IMPRESORA");
    instalarSalidaDirectaRpt(&salida);
    pPosLinea(1, 2, QStringLiteral("a"), -1, 8, 0);
    pPosLinea(0, 0, QStringLiteral("pNuevaHoja"), 0, 0, 1);
    instalarSalidaDirectaRpt(nullptr);
    EXPECT_EQ(salida.lineas, (QStringList{QStringLiteral("pPos|1|2|a|True|8|0|"), QStringLiteral("<salto>")}));
}

// ---------------------------------------------------------------------------------------------

TEST(Lectura, CabezaDeLinea)
{
    struct Caso {
        const char* linea;
        bool hay;
        const char* cabeza;
        int cursor;
    } casos[] = {
        {"pPos|300|2270|x|False|0|0|", true, "pPos", 5},
        {"pCuadro|1|2|3|4|0|", true, "pCuadro", 8},
        {"<!font!>Courier New<!/font!>", true, "<!font!>", 8},
        {"pNuevaHoja", true, "pNuevaHoja", 10},
        {"  pPosVerti|1|", true, "pPosVerti", 12},
        {"pNuevaHojaX", true, "pNuevaHoja", 10},
        {"nada que leer", false, "", 0},
        {"", false, "", 0},
    };
    for (const auto& c : casos) {
        QString cabeza;
        int cursor = 0;
        EXPECT_EQ(cabezaLinea(QString::fromUtf8(c.linea), cabeza, cursor), c.hay) << c.linea;
        if (c.hay) {
            EXPECT_EQ(cabeza, QString::fromUtf8(c.cabeza)) << c.linea;
            EXPECT_EQ(cursor, c.cursor) << c.linea;
        }
    }
}

TEST(Lectura, BarraDentroDelTextoCorreLosCampos)
{
    const DocumentoSpool d = reproduceSpool({QStringLiteral("pPos|300|400|A|B|True|9|0|")}, false, {});
    ASSERT_EQ(d.error, 0);
    ASSERT_EQ(d.paginas.size(), 10);   // "9" became the page field
    ASSERT_EQ(d.paginas[9].comandos.size(), 1);
    const ComandoDibujo& c = d.paginas[9].comandos.at(0);
    EXPECT_EQ(c.texto, QStringLiteral("A"));
    EXPECT_FALSE(c.negrita);   // "B"
    EXPECT_EQ(c.tamano, 0);    // "True" reads no number
    EXPECT_EQ(c.hoja, 9);
}

TEST(Lectura, LineasSinPatronNoDetienenLaLectura)
{
    const DocumentoSpool d = reproduceSpool({QStringLiteral("basura sin fin"), QString(),
                                             QStringLiteral("pPos|1|2| texto con blancos |False|0|0|"),
                                             QStringLiteral("pCuadro|1|2|3")},
                                            false, {});
    ASSERT_EQ(d.error, 0);
    ASSERT_EQ(d.paginas[0].comandos.size(), 2);
    EXPECT_EQ(d.paginas[0].comandos[0].texto, QStringLiteral(" texto con blancos "));
    EXPECT_EQ(d.paginas[0].comandos[1].x2, 3);   // missing fields read as 0
    EXPECT_EQ(d.paginas[0].comandos[1].y2, 0);
}

TEST(Lectura, DirectivasEnPantallaYEnImpresora)
{
    const QStringList lineas{QStringLiteral("<!font!>Arial<!/font!>"), QStringLiteral("<!Color!> &H0000FF00& <!/Color!>"),
                             QStringLiteral("<!Orientacion!>H<!/Orientacion!>"), QStringLiteral("pPos|1|1|a|False|0|1|"),
                             QStringLiteral("<!nHojas!>7<!/nHojas!>")};
    const DocumentoSpool pantalla = reproduceSpool(lineas, false, {});
    EXPECT_EQ(pantalla.fuente, QStringLiteral("Arial"));
    EXPECT_EQ(pantalla.colorFondo, 0x0000FF00u);
    EXPECT_EQ(pantalla.paginas[1].colorFondo, 0x0000FF00u);   // new pages inherit element 0's colour
    EXPECT_FALSE(pantalla.paginas[1].apaisada);
    EXPECT_EQ(pantalla.nHojaActual, 0);                       // the page count directive resets it
    EXPECT_EQ(pantalla.nTotHojas, 2);

    const DocumentoSpool papel = reproduceSpool(lineas, true, {});
    EXPECT_EQ(papel.colorFondo, kColorFondoDiseno);
    ASSERT_EQ(papel.paginas.size(), 1);
    EXPECT_TRUE(papel.paginas[0].apaisada);
}

TEST(Lectura, OrientacionDentroDeUnaHojaSeOmite)
{
    const DocumentoSpool d = reproduceSpool({QStringLiteral("pPos|1|1|a|False|0|0|"),
                                             QStringLiteral("<!Orientacion!>H<!/Orientacion!>"), QStringLiteral("pNuevaHoja"),
                                             QStringLiteral("pPos|1|1|b|False|0|1|")},
                                            true, {});
    ASSERT_EQ(d.error, 0);
    ASSERT_EQ(d.paginas.size(), 2);
    EXPECT_FALSE(d.paginas[0].apaisada);
    EXPECT_FALSE(d.paginas[1].apaisada);
}

namespace {

// Five pages of one text each, with the breaks the builder writes.
QStringList cincoHojas()
{
    QStringList l{QStringLiteral("<!font!>Courier New<!/font!>"), QStringLiteral("<!nHojas!>5<!/nHojas!>"),
                  QStringLiteral("<!Orientacion!>V<!/Orientacion!>"), QStringLiteral("<!Color!>&H00FFFFC0&<!/Color!>")};
    for (int h = 0; h < 5; ++h) {
        if (h > 0)
            l << QStringLiteral("pNuevaHoja");
        l << QStringLiteral("pPos|300|350|H%1|True|16|%1|").arg(h) << QStringLiteral("pCuadro|150|300|1700|1640|%1|").arg(h);
    }
    return l;
}

// The text on each element or paper page ("-" for an empty page).
QStringList marcas(const DocumentoSpool& d)
{
    QStringList m;
    for (const PaginaDibujo& p : d.paginas)
        m << (p.comandos.isEmpty() ? QStringLiteral("-") : p.comandos.first().texto);
    return m;
}

} // namespace

TEST(Reproduccion, RangosEnPantallaYEnImpresora)
{
    struct Caso {
        bool impresora;
        bool conRango;
        qint16 desde, hasta;
        QStringList esperado;
        qint16 tot;
    } casos[] = {
        {false, false, 0, 0, {"H0", "H1", "H2", "H3", "H4"}, 5},
        {false, true, 3, 4, {"H2", "H3"}, 2},            // packed from element 0
        {false, true, 1, 2, {"H0", "H1"}, 2},
        {false, true, 2, 3, {"H1", "H2"}, 2},
        {false, true, 5, 9, {"H4"}, 1},                 // an end above the total finds nothing more
        {false, true, 2, 2, {"H1"}, 1},
        {true, false, 0, 0, {"H0", "H1", "H2", "H3", "H4"}, 5},
        {true, true, 2, 3, {"H1", "H2", "-"}, 3},       // the break after page 3 is honoured
        {true, true, 1, 5, {"H0", "H1", "H2", "H3", "H4"}, 5},
        {true, true, 5, 5, {"H4"}, 1},
        {true, true, 1, 1, {"H0", "-"}, 2},
    };
    for (const auto& c : casos) {
        const RangoHojas r{c.conRango, c.desde, c.hasta};
        const DocumentoSpool d = reproduceSpool(cincoHojas(), c.impresora, r);
        const QString nombre = QStringLiteral("%1 %2..%3").arg(c.impresora ? "papel" : "pantalla").arg(c.desde).arg(c.hasta);
        ASSERT_EQ(d.error, 0) << nombre.toStdString();
        EXPECT_EQ(marcas(d), c.esperado) << nombre.toStdString();
        EXPECT_EQ(d.nTotHojas, c.tot) << nombre.toStdString();
        for (const PaginaDibujo& p : d.paginas)
            if (!p.comandos.isEmpty())
                EXPECT_EQ(p.comandos.size(), 2) << nombre.toStdString();
    }
}

TEST(Reproduccion, TextoVerticalSinRangoSoloAbreLaHoja)
{
    const DocumentoSpool d = reproduceSpool({QStringLiteral("pPosVerti|100|200|ABC|False|8|1|")}, false, {});
    ASSERT_EQ(d.paginas.size(), 2);
    EXPECT_TRUE(d.paginas[1].comandos.isEmpty());
    EXPECT_EQ(d.nTotHojas, 2);
    const DocumentoSpool r = reproduceSpool({QStringLiteral("pPosVerti|100|200|ABC|False|8|1|")}, false, {true, 1, 5});
    ASSERT_EQ(r.paginas.size(), 2);
    ASSERT_EQ(r.paginas[1].comandos.size(), 1);
    EXPECT_EQ(r.paginas[1].comandos[0].tipo, ComandoDibujo::TextoVertical);
}

TEST(Reproduccion, ErroresDeTiempoDeEjecucionTerminanLaLectura)
{
    struct Caso {
        QStringList lineas;
        int error;
    } casos[] = {
        {{QStringLiteral("pPos|40000|1|a|False|0|0|")}, kErrDesbordamiento},
        {{QStringLiteral("pPos|1|1|a|False|0|2|"), QStringLiteral("pPos|1|1|a|False|0|1|")}, 340},   // never opened
        {{QStringLiteral("pPos|1|1|a|False|0|-1|")}, 340},
        {{QStringLiteral("pPos|1|1|a|False|0|1|"), QStringLiteral("<!nHojas!>5<!/nHojas!>"),
          QStringLiteral("pPos|1|1|a|False|0|1|")},
         360},   // loaded twice
    };
    for (const auto& c : casos) {
        const DocumentoSpool d = reproduceSpool(c.lineas, false, {});
        EXPECT_EQ(d.error, c.error) << c.lineas.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(d.nTotHojas, 1);
    }
}

// ---------------------------------------------------------------------------------------------

TEST(ArchivoSpool, NumRegistrosYLectura)
{
    QTemporaryDir dir;
    G().reiniciar();
    G().gsPathRpt = dir.path();
    auto escribe = [&](const char* nombre, const QByteArray& contenido) {
        QFile f(dir.filePath(QString::fromLatin1(nombre)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    };
    escribe("a.PRN", "<!font!>Courier New<!/font!>\r\n<!nHojas!> 12 <!/nHojas!>\r\npPos|1|1|A\xD1O|False|0|0|\r\n");
    escribe("b.PRN", "pPos|1|1|x|False|0|0|\r\n");
    EXPECT_EQ(NumRegistros(QStringLiteral("a.PRN")), 12);
    EXPECT_EQ(NumRegistros(QStringLiteral("b.PRN")), 0);
    EXPECT_EQ(NumRegistros(QStringLiteral("no.PRN")), 0);

    const QStringList lineas = leeLineasSpool(rutaSpool(QStringLiteral("a.PRN")));
    ASSERT_EQ(lineas.size(), 3);
    EXPECT_EQ(lineas[2], QStringLiteral("pPos|1|1|AÑO|False|0|0|"));
    EXPECT_THROW(leeLineasSpool(rutaSpool(QStringLiteral("no.PRN"))), ErrorVB);
    G().reiniciar();
}

TEST(ArchivoSpool, CuentaDeHojasDanada)
{
    struct {
        const char* linea;
        int hojas;
        int error;
    } casos[] = {
        {"<!nHojas!>32767<!/nHojas!>", 32767, 0},
        {"<!nHojas!>-3<!/nHojas!>", -3, 0},
        {"<!nHojas!>abc<!/nHojas!>", 0, 0},
        {"<!nHojas!>7", 7, 0},                                // no closing tag: to the end of the line
        {"<!nHojas!>32768<!/nHojas!>", 0, kErrDesbordamiento},
        {"<!nHojas!>1e300<!/nHojas!>", 0, kErrDesbordamiento},
        {"<!nHojas!>1e400<!/nHojas!>", 0, kErrDesbordamiento},
        {"<!nHojas!>&H1FFFFFFFF<!/nHojas!>", 0, kErrDesbordamiento},
        {"<!/nHojas!><!nHojas!>5", 0, kErrArgumento},         // the closing tag before the number
    };
    for (const auto& c : casos) {
        int hojas = 0, error = 0;
        try {
            hojas = numeroDeHojas({QStringLiteral("pPos|1|1|a|False|0|0|"), QString::fromUtf8(c.linea)});
        } catch (const ErrorVB& e) {
            error = e.numero;
        }
        EXPECT_EQ(hojas, c.hojas) << c.linea;
        EXPECT_EQ(error, c.error) << c.linea;
    }
}

TEST(Lectura, ColorDecimalFueraDe32BitsTerminaLaLectura)
{
    struct {
        const char* color;
        quint32 fondo;
        int error;
    } casos[] = {
        {"16777215", 0x00FFFFFFu, 0},
        {"255.9", 0x000000FFu, 0},           // the integer part
        {"-1", 0xFFFFFFFFu, 0},
        {"4294967295", 0xFFFFFFFFu, 0},
        {"-2147483648", 0x80000000u, 0},
        {"&HFF&", 0x000000FFu, 0},
        {"4294967296", kColorFondoDiseno, kErrDesbordamiento},
        {"-2147483649", kColorFondoDiseno, kErrDesbordamiento},
        {"9.3e18", kColorFondoDiseno, kErrDesbordamiento},
        {"1e300", kColorFondoDiseno, kErrDesbordamiento},
    };
    for (const auto& c : casos) {
        const DocumentoSpool d = reproduceSpool({QStringLiteral("<!Color!>%1<!/Color!>").arg(QLatin1String(c.color)),
                                                 QStringLiteral("pPos|1|1|a|False|0|0|")},
                                                false, {});
        EXPECT_EQ(d.error, c.error) << c.color;
        EXPECT_EQ(d.paginas[0].colorFondo, c.fondo) << c.color;
        EXPECT_EQ(d.paginas[0].comandos.size(), c.error ? 0 : 1) << c.color;
    }
}

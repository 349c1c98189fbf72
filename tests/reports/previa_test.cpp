// The preview model (pages on view, printing) and the replay on a painter.
#include "basic/errores.h"
#include "basic/respondedor_guion.h"
#include "reports/previa.h"
#include "reports/reproduccion.h"
#include "shell/globales.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// Five pages, one mark "H<page>" each, with the breaks the builder writes.
QByteArray cincoHojas(const char* color = "&H00FFFFC0&")
{
    QByteArray t = "<!font!>Courier New<!/font!>\r\n<!nHojas!>5<!/nHojas!>\r\n<!Orientacion!>V<!/Orientacion!>\r\n";
    t += QByteArray("<!Color!>") + color + "<!/Color!>\r\n";
    for (int h = 0; h < 5; ++h) {
        if (h > 0)
            t += "pNuevaHoja\r\n";
        t += QStringLiteral("pPos|300|350|H%1|True|16|%1|\r\npCuadro|150|300|1700|1640|%1|\r\n").arg(h).toLatin1();
    }
    return t;
}

class Previa : public ::testing::Test {
protected:
    QTemporaryDir dir;
    RespondedorGuion mensajes;
    QList<DocumentoSpool> impresos;

    void SetUp() override
    {
        G().reiniciar();
        G().gsPathRpt = dir.path();
        escribir("r.PRN", cincoHojas());
        instalarRespondedor(&mensajes);
        instalarDestinoImpresion([this](const DocumentoSpool& d) { impresos << d; });
    }
    void TearDown() override
    {
        instalarDestinoImpresion({});
        instalarAbridorPrevia({});
        instalarRespondedor(nullptr);
        G().reiniciar();
    }
    void escribir(const char* nombre, const QByteArray& contenido)
    {
        QFile f(dir.filePath(QString::fromLatin1(nombre)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    }
    static QString marcaVisible(const ModeloPrevia& m)
    {
        const int i = m.elementoVisible();
        return i < 0 || m.picPrevia[i].pagina.comandos.isEmpty() ? QString() : m.picPrevia[i].pagina.comandos[0].texto;
    }
    static int visibles(const ModeloPrevia& m)
    {
        int n = 0;
        for (const auto& e : m.picPrevia)
            n += e.visible;
        return n;
    }
};

} // namespace

TEST_F(Previa, PaginarSinRango)
{
    ModeloPrevia m;
    m.Archivo = QStringLiteral("r.PRN");
    m.Form_Load();
    ASSERT_EQ(m.nTotHojas, 5);
    EXPECT_EQ(marcaVisible(m), QStringLiteral("H0"));
    // Button, page shown after it: the ends change nothing and say nothing.
    const struct {
        int boton;
        const char* marca;
    } pasos[] = {{2, "H0"}, {3, "H1"}, {3, "H2"}, {3, "H3"}, {3, "H4"}, {3, "H4"}, {2, "H3"}, {2, "H2"}};
    for (const auto& p : pasos) {
        m.tlbPrevia_ButtonClick(p.boton);
        EXPECT_EQ(marcaVisible(m), QString::fromLatin1(p.marca));
        EXPECT_EQ(visibles(m), 1);
    }
    // End and the page scrolled to: held within the pages loaded.
    m.pIrA(9);
    EXPECT_EQ(marcaVisible(m), QStringLiteral("H4"));
    m.pIrA(-1);
    EXPECT_EQ(marcaVisible(m), QStringLiteral("H0"));
    EXPECT_EQ(visibles(m), 1);
    EXPECT_TRUE(mensajes.mostrados.isEmpty());
}

TEST_F(Previa, ArchivoInexistente)
{
    ModeloPrevia m;
    m.Archivo = QStringLiteral("no.PRN");
    m.Form_Load();
    ASSERT_EQ(mensajes.mostrados.size(), 1);
    EXPECT_EQ(mensajes.mostrados[0].texto, QStringLiteral("Archivo Físico del Reporte no Existe"));
    EXPECT_EQ(mensajes.mostrados[0].titulo, QStringLiteral("Error al Imprimir"));
    EXPECT_EQ(mensajes.mostrados[0].flags, 16);
    EXPECT_EQ(m.nTotHojas, 1);
    EXPECT_EQ(m.picPrevia.size(), 1);
}

TEST_F(Previa, ColorDeFondoYErrorQueCierraLaVentana)
{
    escribir("c.PRN", cincoHojas("&H0000FF00&"));
    ModeloPrevia m;
    m.Archivo = QStringLiteral("c.PRN");
    m.Form_Load();
    EXPECT_EQ(m.picPrevia[0].pagina.colorFondo, 0x0000FF00u);
    EXPECT_EQ(m.picPrevia[4].pagina.colorFondo, 0x0000FF00u);
    EXPECT_EQ(colorRuntime(0x00FFFFC0u), QColor(0xC0, 0xFF, 0xFF));   // blue and green bytes high: pale cyan

    escribir("d.PRN", "pPos|1|99999|x|False|0|0|\r\n");
    ModeloPrevia d;
    d.Archivo = QStringLiteral("d.PRN");
    d.Form_Load();
    EXPECT_TRUE(d.descargar);
    EXPECT_TRUE(mensajes.mostrados.isEmpty());
}

TEST_F(Previa, SinImpresoraSeAvisa)
{
    instalarDestinoImpresion([](const DocumentoSpool&) {
        throw ErrorVB(kErrSinImpresora, QStringLiteral("No existe una impresora seleccionada.Verifique."));
    });
    pAbrePrevia(QStringLiteral("r.PRN"), QStringLiteral("xx"));
    ASSERT_EQ(mensajes.mostrados.size(), 1);
    EXPECT_EQ(mensajes.mostrados[0].texto, QStringLiteral("No existe una impresora seleccionada.Verifique."));
    EXPECT_EQ(mensajes.mostrados[0].titulo, QStringLiteral("Impresión"));
    EXPECT_EQ(mensajes.mostrados[0].flags, 16);
}

// ---------------------------------------------------------------------------------------------
// The replay on a painter: 1440 units an inch, text from the top of its line, rectangles as
// four lines, size 0 as the body size.

namespace {

constexpr int kDpi = 144;   // 10 twips a pixel

QImage lienzo()
{
    QImage img(1200, 1600, QImage::Format_RGB32);
    img.setDotsPerMeterX(qRound(kDpi / 0.0254));
    img.setDotsPerMeterY(qRound(kDpi / 0.0254));
    img.fill(Qt::white);
    return img;
}

QImage dibujar(const QList<ComandoDibujo>& comandos)
{
    QImage img = lienzo();
    QPainter p(&img);
    preparaTwips(p);
    PaginaDibujo pagina;
    pagina.comandos = comandos;
    dibujaPagina(p, pagina, false);
    return img;
}

ComandoDibujo texto(int x, int y, const QString& t, qint16 tamano)
{
    ComandoDibujo c;
    c.x = qint16(x);
    c.y = qint16(y);
    c.texto = t;
    c.tamano = tamano;
    return c;
}

// Bounding box of the ink, in pixels.
QRect tinta(const QImage& img)
{
    QRect r;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (qGray(img.pixel(x, y)) < 128)
                r |= QRect(x, y, 1, 1);
    return r;
}

} // namespace

TEST(Dibujo, CuadroDeCuatroLineasSinRelleno)
{
    ComandoDibujo c;
    c.tipo = ComandoDibujo::Cuadro;
    c.x = 1440;
    c.y = 2880;
    c.x2 = 4320;
    c.y2 = 4320;
    const QImage img = dibujar({c});
    const QRect r = tinta(img);
    EXPECT_NEAR(r.left(), 144, 1);
    EXPECT_NEAR(r.top(), 288, 1);
    EXPECT_NEAR(r.right(), 432, 1);
    EXPECT_NEAR(r.bottom(), 432, 1);
    EXPECT_GT(qGray(img.pixel(300, 360)), 200);   // inside stays white
}

TEST(Dibujo, TextoDesdeLaParteSuperiorDeSuLinea)
{
    const QImage img = dibujar({texto(1440, 2880, QStringLiteral("MMMMMMMMMM"), 8)});
    const QRect r = tinta(img);
    // An 8-point line is 160 twips high: its ink lies within y 2880..3040 (pixels 288..304),
    // and ten characters of 96 twips span about 960 twips from x 1440.
    EXPECT_GE(r.top(), 288);
    EXPECT_LE(r.bottom(), 305);
    EXPECT_NEAR(r.left(), 144, 2);
    EXPECT_NEAR(r.right(), 144 + 96, 3);
}

TEST(Dibujo, TamanoCeroEsElDelCuerpo)
{
    const QRect cero = tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), 0)}));
    const QRect ocho = tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), kTamanoCuerpo)}));
    const QRect doce = tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), 12)}));
    EXPECT_EQ(cero, ocho);
    EXPECT_GT(doce.width(), ocho.width() * 14 / 10);
}

TEST(Dibujo, ColumnasAlineadasPorCantidadDeCaracteres)
{
    // Ten blanks advance exactly ten characters of 96 twips: figures padded on the left line
    // up by their last digit.
    const QRect relleno = tinta(dibujar({texto(1000, 1000, QStringLiteral("          4"), 0)}));
    const QRect directo = tinta(dibujar({texto(1960, 1000, QStringLiteral("4"), 0)}));
    EXPECT_NEAR(relleno.left(), directo.left(), 1);
    EXPECT_NEAR(relleno.right(), directo.right(), 1);
}

TEST(Dibujo, PdfDeCincoHojasYApaisado)
{
    QTemporaryDir dir;
    DocumentoSpool doc;
    doc.impresora = true;
    for (int i = 0; i < 5; ++i) {
        PaginaDibujo p;
        p.comandos << texto(300, 350, QStringLiteral("H%1").arg(i), 16);
        p.apaisada = i == 4;
        doc.paginas << p;
    }
    const QString ruta = dir.filePath(QStringLiteral("x.pdf"));
    ASSERT_TRUE(guardaPdf(ruta, doc));
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString pdf = QString::fromLatin1(f.readAll());
    QList<QPair<double, double>> cajas;
    QRegularExpressionMatchIterator it = QRegularExpression(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]")).globalMatch(pdf);
    while (it.hasNext()) {
        const auto m = it.next();
        cajas.append({m.captured(1).toDouble(), m.captured(2).toDouble()});
    }
    ASSERT_EQ(cajas.size(), 5);
    EXPECT_LT(cajas[0].first, cajas[0].second);   // A4 portrait
    EXPECT_NEAR(cajas[0].first, 595, 1);
    EXPECT_GT(cajas[4].first, cajas[4].second);   // the landscape page
    EXPECT_FALSE(guardaPdf(dir.filePath(QStringLiteral("no/existe/x.pdf")), doc));
}

// The preview model's loading (paging and printing: the window's test, vistas/preview) and the
// replay on a painter.
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

class Previa : public ::testing::Test {
protected:
    QTemporaryDir dir;
    RespondedorGuion mensajes;

    void SetUp() override
    {
        G().reiniciar();
        G().gsPathRpt = dir.path();
        instalarRespondedor(&mensajes);
    }
    void TearDown() override
    {
        instalarRespondedor(nullptr);
        G().reiniciar();
    }
    void escribir(const char* nombre, const QByteArray& contenido)
    {
        QFile f(dir.filePath(QString::fromLatin1(nombre)));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    }
};

} // namespace

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

// A record out of the page's bounds closes the window without a word.
TEST_F(Previa, ErrorQueCierraLaVentana)
{
    escribir("d.PRN", "pPos|1|99999|x|False|0|0|\r\n");
    ModeloPrevia d;
    d.Archivo = QStringLiteral("d.PRN");
    d.Form_Load();
    EXPECT_TRUE(d.descargar);
    EXPECT_TRUE(mensajes.mostrados.isEmpty());
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

TEST(Dibujo, CuadroTextoYColumnas)
{
    // A rectangle: four lines, inside left white.
    ComandoDibujo c;
    c.tipo = ComandoDibujo::Cuadro;
    c.x = 1440;
    c.y = 2880;
    c.x2 = 4320;
    c.y2 = 4320;
    const QImage img = dibujar({c});
    EXPECT_LE((tinta(img).topLeft() - QPoint(144, 288)).manhattanLength(), 2);
    EXPECT_LE((tinta(img).bottomRight() - QPoint(432, 432)).manhattanLength(), 2);
    EXPECT_GT(qGray(img.pixel(300, 360)), 200);

    // An 8-point line is 160 twips high: its ink lies within y 2880..3040 (pixels 288..304),
    // and ten characters of 96 twips span about 960 twips from x 1440.
    const QRect r = tinta(dibujar({texto(1440, 2880, QStringLiteral("MMMMMMMMMM"), 8)}));
    EXPECT_GE(r.top(), 288);
    EXPECT_LE(r.bottom(), 305);
    EXPECT_NEAR(r.left(), 144, 2);
    EXPECT_NEAR(r.right(), 144 + 96, 3);

    // Size 0 is the body's.
    const QRect cero = tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), 0)}));
    const QRect ocho = tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), kTamanoCuerpo)}));
    EXPECT_EQ(cero, ocho);
    EXPECT_GT(tinta(dibujar({texto(1000, 1000, QStringLiteral("MMMMMMMMMM"), 12)})).width(), ocho.width() * 14 / 10);

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

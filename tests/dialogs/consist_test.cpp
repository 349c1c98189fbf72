// The inconsistency viewer's print: its drawing, the reading of the message file, the error
// table, and the pages it makes on a device.
#include "comun/base_prueba.h"

#include "basic/errores.h"
#include "dialogs/consist.h"
#include "shell/globales.h"

#include <QFile>
#include <QPdfWriter>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

const QDateTime kMomento(QDate(2026, 11, 22), QTime(9, 5, 7));

QStringList lineasDePrueba(int n)
{
    QStringList l;
    for (int i = 1; i <= n; ++i)
        l << QStringLiteral("Falta %1").arg(i);
    return l;
}

void escribir(const QString& archivo, const QByteArray& contenido)
{
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(contenido);
}

int posicionSalto(const Dibujo& d)
{
    for (int i = 0; i < d.size(); ++i)
        if (d[i].tipo == OperacionDibujo::NuevaPagina)
            return i;
    return -1;
}

int saltos(const Dibujo& d)
{
    return int(std::count_if(d.begin(), d.end(),
                             [](const OperacionDibujo& o) { return o.tipo == OperacionDibujo::NuevaPagina; }));
}

// ------------------------------------------------------------------ drawing of the print

TEST(DibujoConsist, CabeceraConFechaHoraYTitulos)
{
    const Dibujo d = dibujoConsist({}, kMomento);
    ASSERT_GE(d.size(), 4);
    const struct { int x, y; const char* texto; } esperado[] = {
        {400, 300, "22/11/2026"},
        {4500, 300, "INCONSISTENCIAS DETECTADAS "},
        {400, 570, "09:05:07"},
        {3500, 570, "MODIFICACIÓN DE COEFICIENTE O PORCENTAJE"},
    };
    for (int i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(d[i].tipo, OperacionDibujo::Texto);
        EXPECT_EQ(d[i].x, esperado[i].x);
        EXPECT_EQ(d[i].y, esperado[i].y);
        EXPECT_EQ(d[i].texto, QString::fromUtf8(esperado[i].texto));
    }
    for (const OperacionDibujo& op : d) {
        EXPECT_EQ(op.fuente, QStringLiteral("Courier new"));
        if (op.tipo == OperacionDibujo::Texto) {
            EXPECT_TRUE(op.negrita);
            EXPECT_EQ(op.tam, 8);
        }
    }
}

TEST(DibujoConsist, ListaVaciaDaTotalCeroYCuadroDe550)
{
    const Dibujo d = dibujoConsist({}, kMomento);
    ASSERT_EQ(d.size(), 4 + 1 + 4);
    EXPECT_EQ(saltos(d), 0);
    EXPECT_EQ(d[4].texto, QStringLiteral(" Inconsistencias Detectadas :  0"));
    EXPECT_EQ(d[4].x, 500);
    EXPECT_EQ(d[4].y, 1000);
    // The frame, by four lines, from (300, 720) to (10000, 1270).
    const Dibujo cuadro(d.begin() + 5, d.end());
    int minY = INT_MAX, maxY = INT_MIN, minX = INT_MAX, maxX = INT_MIN;
    for (const OperacionDibujo& op : cuadro) {
        EXPECT_EQ(op.tipo, OperacionDibujo::Linea);
        minY = std::min({minY, op.y, op.y2});
        maxY = std::max({maxY, op.y, op.y2});
        minX = std::min({minX, op.x, op.x2});
        maxX = std::max({maxX, op.x, op.x2});
    }
    EXPECT_EQ(minY, 720);
    EXPECT_EQ(maxY - minY, 550);
    EXPECT_EQ(minX, 300);
    EXPECT_EQ(maxX, 10000);
}

struct CasoPaginas {
    int lineas;
    int posicionSalto;     // index in the drawing of the page break, -1 when none
    int yTotal;
    int yFondoCuadro;
};

class PaginasConsist : public ::testing::TestWithParam<CasoPaginas> {};

TEST_P(PaginasConsist, UnSoloSaltoTrasLaLinea40YElContadorSigue)
{
    const CasoPaginas caso = GetParam();
    const Dibujo d = dibujoConsist(lineasDePrueba(caso.lineas), kMomento);
    EXPECT_EQ(posicionSalto(d), caso.posicionSalto);
    EXPECT_EQ(saltos(d), caso.posicionSalto < 0 ? 0 : 1);

    // Lines: Str(n) + ". " + text at y (n-1) x 270 + 1000, whatever the page.
    for (int n = 1; n <= caso.lineas; ++n) {
        const OperacionDibujo& op = d[4 + n - 1 + (n > 40 ? 1 : 0)];
        ASSERT_EQ(op.tipo, OperacionDibujo::Texto);
        EXPECT_EQ(op.texto, QStringLiteral(" %1. Falta %1").arg(n));
        EXPECT_EQ(op.x, 400);
        EXPECT_EQ(op.y, (n - 1) * 270 + 1000);
    }
    const OperacionDibujo& total = d[d.size() - 5];
    EXPECT_EQ(total.texto, QStringLiteral(" Inconsistencias Detectadas :  %1").arg(caso.lineas));
    EXPECT_EQ(total.y, caso.yTotal);
    EXPECT_EQ(d.last().y, caso.yFondoCuadro);   // the left side goes up from the bottom
    if (caso.posicionSalto >= 0)
        EXPECT_LT(caso.posicionSalto, d.size() - 5);   // total and frame on the second page
}

INSTANTIATE_TEST_SUITE_P(
    Tabla, PaginasConsist,
    ::testing::Values(CasoPaginas{1, -1, 1270, 1540},
                      CasoPaginas{39, -1, 11530, 11800},
                      // Exactly 40: the break comes right after line 40, the total at n = 41.
                      CasoPaginas{40, 4 + 40, 11800, 12070},
                      CasoPaginas{41, 4 + 40, 12070, 12340},
                      // Far beyond the page: still one break, the count runs on.
                      CasoPaginas{95, 4 + 40, 95 * 270 + 1000, 95 * 270 + 1270}));

// ------------------------------------------------------------------ message file

TEST(LeerMens, LineasComoLasDaUnLectorDeLineas)
{
    FamiliaPrueba familia;
    const QString archivo = G().gsArchMens;
    const struct { QByteArray contenido; QStringList lineas; } casos[] = {
        {"", {}},
        {"\n", {QString()}},
        {"uno\n", {QStringLiteral("uno")}},
        {"uno\ndos", {QStringLiteral("uno"), QStringLiteral("dos")}},
        {"uno\r\ndos\r\n", {QStringLiteral("uno"), QStringLiteral("dos")}},
        {"uno\n\ntres\n", {QStringLiteral("uno"), QString(), QStringLiteral("tres")}},
        {"Señale si esta ubicado en la amazonía\n", {QStringLiteral("Señale si esta ubicado en la amazonía")}},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.contenido.toStdString());
        escribir(archivo, caso.contenido);
        EXPECT_EQ(leerLineasMens(archivo), caso.lineas);
        EXPECT_EQ(leerTextoMens(archivo), QString::fromUtf8(caso.contenido));
    }
}

TEST(LeerMens, ArchivoQueFaltaEsElError53)
{
    FamiliaPrueba familia;
    try {
        leerLineasMens(G().gsPathSys + QStringLiteral("no_existe.txt"));
        FAIL() << "sin error";
    } catch (const ErrorVB& e) {
        EXPECT_EQ(e.numero, 53);
    }
}

// ------------------------------------------------------------------ error table of the print

TEST(ErroresImpresion, TablaPorNumero)
{
    const struct { int numero; const char* texto; } casos[] = {
        {380, "No Existe Información a Imprimir.Verifique."},
        {482, "No existe una impresora seleccionada.Verifique."},
        {55, ""},
        {20545, "La Impresión ha sido Cancelada."},
        {53, "Error Técnico : ( 53) No se encontró el archivo"},
        {6, "Error Técnico : ( 6) No se encontró el archivo"},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(mensajeErrorImpresion(caso.numero, QStringLiteral("No se encontró el archivo")),
                  QString::fromUtf8(caso.texto))
            << caso.numero;
}

// ------------------------------------------------------------------ printing on a device

class DestinoPdf : public DestinoImpresion {
public:
    explicit DestinoPdf(const QString& archivo) : pdf_(archivo) {}
    QPagedPaintDevice& dispositivo() override { return pdf_; }

private:
    QPdfWriter pdf_;
};

int paginasPdf(const QString& archivo)
{
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    return int(QString::fromLatin1(f.readAll()).count(QRegularExpression(QStringLiteral("/Type\\s*/Page[^s]"))));
}

class ImpresionConsist : public PruebaConBase {};

TEST_F(ImpresionConsist, PaginasSobreElDispositivo)
{
    const struct { int lineas; int paginas; } casos[] = {{0, 1}, {3, 1}, {40, 2}, {95, 2}};
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.lineas);
        QByteArray contenido;
        for (const QString& l : lineasDePrueba(caso.lineas))
            contenido += l.toUtf8() + "\n";
        escribir(G().gsArchMens, contenido);
        const QString pdf = familia.carpeta() + QStringLiteral("consist_%1.pdf").arg(caso.lineas);
        {
            DestinoPdf destino(pdf);
            pImprimeConsist(&destino);
        }
        EXPECT_TRUE(familia.respondedor().mostrados.isEmpty());
        EXPECT_EQ(paginasPdf(pdf), caso.paginas);
    }
}

// No message file: a box titled as the print's (no printer: the viewer's test).
TEST_F(ImpresionConsist, SinArchivoUnCuadroTituladoImpresion)
{
    QFile::remove(G().gsArchMens);
    DestinoPdf destino(familia.carpeta() + QStringLiteral("x.pdf"));
    pImprimeConsist(&destino);
    const auto& m = familia.respondedor().mostrados;
    ASSERT_EQ(m.size(), 1);
    EXPECT_EQ(m[0].texto, QStringLiteral("Error Técnico : ( 53) No se encontró el archivo"));
    EXPECT_EQ(m[0].titulo, QStringLiteral("Impresión"));
}

}  // namespace

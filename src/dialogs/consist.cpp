#include "dialogs/consist.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "shell/globales.h"

#include <QFile>
#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPen>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRectF>

#include <memory>

namespace {

const QString kFuente = QStringLiteral("Courier new");
constexpr qint16 kTam = 8;
constexpr int kTwipsPorPulgada = 1440;
constexpr int kPaso = 270;             // line pitch
constexpr int kPrimeraLinea = 1000;    // y of line 1
constexpr int kLineasPrimeraHoja = 40;

int yLinea(int n) { return (n - 1) * kPaso + kPrimeraLinea; }

// The system's default printer, created when first asked for.
class ImpresoraPredeterminada : public DestinoImpresion {
public:
    QPagedPaintDevice& dispositivo() override
    {
        if (!impresora_) {
            const QPrinterInfo info = QPrinterInfo::defaultPrinter();
            if (info.isNull())
                throw ErrorVB(kErrSinImpresora, QStringLiteral("No hay impresora predeterminada"));
            impresora_ = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
            impresora_->setPageOrientation(QPageLayout::Portrait);
            impresora_->setDocName(QStringLiteral("Inconsistencias"));
        }
        return *impresora_;
    }

private:
    std::unique_ptr<QPrinter> impresora_;
};

}  // namespace

void pImprimeTexto(Dibujo& d, int x, int y, const QString& texto, bool negrita, qint16 tam)
{
    OperacionDibujo op;
    op.tipo = OperacionDibujo::Texto;
    op.x = x;
    op.y = y;
    op.texto = texto;
    op.fuente = kFuente;
    op.negrita = negrita;
    op.tam = tam;
    d.append(op);
}

void pImprimeCuadro(Dibujo& d, int x1, int y1, int x2, int y2)
{
    auto linea = [&](int ax, int ay, int bx, int by) {
        OperacionDibujo op;
        op.tipo = OperacionDibujo::Linea;
        op.x = ax;
        op.y = ay;
        op.x2 = bx;
        op.y2 = by;
        op.fuente = kFuente;
        d.append(op);
    };
    linea(x1, y1, x2, y1);
    linea(x2, y1, x2, y2);
    linea(x2, y2, x1, y2);
    linea(x1, y2, x1, y1);
}

Dibujo dibujoConsist(const QStringList& lineas, const QDateTime& momento)
{
    Dibujo d;
    pImprimeTexto(d, 400, 300, Format(momento.date(), QStringLiteral("dd/mm/yyyy")), true, kTam);
    pImprimeTexto(d, 4500, 300, QStringLiteral("INCONSISTENCIAS DETECTADAS "), true, kTam);
    pImprimeTexto(d, 400, 570, Format(momento, QStringLiteral("hh:mm:ss")), true, kTam);
    pImprimeTexto(d, 3500, 570, QStringLiteral("MODIFICACIÓN DE COEFICIENTE O PORCENTAJE"), true, kTam);

    // The count runs on across the one page break, so the second page starts low.
    int n = 0;
    for (const QString& linea : lineas) {
        ++n;
        pImprimeTexto(d, 400, yLinea(n), Str(n) + QStringLiteral(". ") + linea, true, kTam);
        if (n == kLineasPrimeraHoja) {
            OperacionDibujo salto;
            salto.tipo = OperacionDibujo::NuevaPagina;
            d.append(salto);
        }
    }
    const int c = n;
    n = c + 1;
    pImprimeTexto(d, 500, yLinea(n), QStringLiteral(" Inconsistencias Detectadas : ") + Str(c), true, kTam);
    pImprimeCuadro(d, 300, 720, 10000, yLinea(n) + kPaso);
    return d;
}

void pintarDibujo(const Dibujo& d, QPainter& p, QPagedPaintDevice& dispositivo)
{
    auto ajustar = [&] {
        p.resetTransform();
        p.scale(dispositivo.logicalDpiX() / double(kTwipsPorPulgada),
                dispositivo.logicalDpiY() / double(kTwipsPorPulgada));
    };
    ajustar();
    QPen lapiz(Qt::black);
    lapiz.setCosmetic(true);
    lapiz.setWidth(1);
    p.setPen(lapiz);
    for (const OperacionDibujo& op : d) {
        switch (op.tipo) {
        case OperacionDibujo::Texto: {
            QFont fuente(op.fuente);
            fuente.setBold(op.negrita);
            fuente.setPixelSize(qMax(1, int(op.tam) * 20));
            p.setFont(fuente);
            p.drawText(QRectF(op.x, op.y, 100000, qMax(1, int(op.tam) * 40)),
                       Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip | Qt::TextSingleLine, op.texto);
            break;
        }
        case OperacionDibujo::Linea:
            p.drawLine(op.x, op.y, op.x2, op.y2);
            break;
        case OperacionDibujo::NuevaPagina:
            dispositivo.newPage();
            ajustar();
            break;
        }
    }
}

QString leerTextoMens(const QString& archivo)
{
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorVB(kErrArchivoNoEncontrado, QStringLiteral("No se encontró el archivo"));
    return QString::fromUtf8(f.readAll());
}

QStringList leerLineasMens(const QString& archivo)
{
    QString texto = leerTextoMens(archivo);
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    texto.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (texto.isEmpty())
        return {};
    if (texto.endsWith(QLatin1Char('\n')))
        texto.chop(1);
    return texto.split(QLatin1Char('\n'));
}

QString mensajeErrorImpresion(int numero, const QString& descripcion)
{
    switch (numero) {
    case kErrValorPropiedad: return QStringLiteral("No Existe Información a Imprimir.Verifique.");
    case kErrSinImpresora: return QStringLiteral("No existe una impresora seleccionada.Verifique.");
    case kErrArchivoAbierto: return QString();
    case 20545: return QStringLiteral("La Impresión ha sido Cancelada.");
    default: return QStringLiteral("Error Técnico : (") + Str(numero) + QStringLiteral(") ") + descripcion;
    }
}

void pImprimeConsist(DestinoImpresion* destino)
{
    ImpresoraPredeterminada predeterminada;
    try {
        QPagedPaintDevice& dispositivo = destino ? destino->dispositivo() : predeterminada.dispositivo();
        const Dibujo d = dibujoConsist(leerLineasMens(G().gsArchMens), Ahora());
        QPainter p;
        if (!p.begin(&dispositivo))
            throw ErrorVB(kErrSinImpresora, QStringLiteral("No se pudo abrir la impresora"));
        pintarDibujo(d, p, dispositivo);
        p.end();
    } catch (const ErrorVB& e) {
        const QString texto = mensajeErrorImpresion(e.numero, e.descripcion);
        if (!texto.isEmpty())
            MsgBox(texto, vbCritical, QStringLiteral("Impresión"));
    }
}

void FrmConsist::Form_Load()
{
    G().gbConsistAbierto = true;
    TxtPreliminar = leerTextoMens(G().gsArchMens);
}

void FrmConsist::Form_Unload() { G().gbConsistAbierto = false; }

void FrmConsist::CmdGrabar_Click()
{
    G().gsRespConsist = QStringLiteral("A");
    Form_Unload();
    cerrado = true;
}

void FrmConsist::cmdImprimir_Click() { pImprimeConsist(destino); }

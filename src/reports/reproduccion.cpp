#include "reports/reproduccion.h"

#include "basic/errores.h"

#include <QFontMetricsF>
#include <QMarginsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPen>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr int kTwipsPorPulgada = 1440;
constexpr int kTwipsPorPunto = 20;

DestinoImpresion& destinoInstalado()
{
    static DestinoImpresion destino;
    return destino;
}

int puntosEfectivos(qint16 tamano) { return tamano > 0 ? tamano : kTamanoCuerpo; }

void dibujaTexto(QPainter& p, const QFont& fuente, int x, int y, const QString& texto)
{
    p.setFont(fuente);
    // The record's y is the top of the line, as the runtime's current position is.
    const QFontMetricsF medidas(fuente);
    p.drawText(QPointF(x, y + medidas.ascent()), texto);
}

} // namespace

QFont fuenteTwips(const QString& familia, int puntos, bool negrita)
{
    QFont f(familia);
    f.setStyleHint(QFont::TypeWriter);
    f.setFixedPitch(true);
    f.setPixelSize(puntos * kTwipsPorPunto);
    f.setBold(negrita);
    // Unhinted outlines keep the advances proportional at every scale: the columns of the
    // report line up by character count.
    f.setHintingPreference(QFont::PreferNoHinting);
    f.setKerning(false);
    return f;
}

void preparaTwips(QPainter& p)
{
    const QPaintDevice* d = p.device();
    const int ancho = d->width();
    const int alto = d->height();
    p.setViewport(0, 0, ancho, alto);
    p.setWindow(0, 0, qRound(ancho * double(kTwipsPorPulgada) / d->logicalDpiX()),
                qRound(alto * double(kTwipsPorPulgada) / d->logicalDpiY()));
}

QColor colorRuntime(quint32 valor)
{
    return QColor(int(valor & 0xFF), int((valor >> 8) & 0xFF), int((valor >> 16) & 0xFF));
}

void dibujaPagina(QPainter& p, const PaginaDibujo& pagina, bool impresora)
{
    QPen pluma(Qt::black, kGrosorLinea, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin);
    p.setPen(pluma);
    p.setBrush(Qt::NoBrush);
    const QString textos = QString::fromLatin1(kFuenteTextos);
    for (const ComandoDibujo& c : pagina.comandos) {
        switch (c.tipo) {
        case ComandoDibujo::Texto:
            dibujaTexto(p, fuenteTwips(textos, puntosEfectivos(c.tamano), c.negrita), c.x, c.y, c.texto);
            break;
        case ComandoDibujo::TextoVertical: {
            const QFont f = fuenteTwips(QStringLiteral("Courier new"), puntosEfectivos(c.tamano), c.negrita);
            for (int i = 0; i < c.texto.size(); ++i)
                dibujaTexto(p, f, c.x, c.y + i * kPasoVertical, c.texto.mid(i, 1));
            break;
        }
        case ComandoDibujo::Cuadro:
            p.setFont(fuenteTwips(impresora ? QString::fromLatin1(kFuenteCuadrosImpresora) : textos, kTamanoCuerpo, false));
            p.drawLine(c.x, c.y, c.x, c.y2);
            p.drawLine(c.x2, c.y, c.x2, c.y2);
            p.drawLine(c.x, c.y, c.x2, c.y);
            p.drawLine(c.x, c.y2, c.x2, c.y2);
            break;
        }
    }
}

void imprimeDocumento(QPagedPaintDevice& dispositivo, const DocumentoSpool& doc, bool conFondo)
{
    QList<const PaginaDibujo*> paginas;
    for (const PaginaDibujo& pagina : doc.paginas)
        if (pagina.cargada)
            paginas.append(&pagina);
    if (paginas.isEmpty())
        return;
    // A screen replay keeps no orientation per page: the directive rules all of them.
    const bool todoApaisado = !doc.impresora && doc.orientacion == QLatin1String("H");
    auto orientacion = [&](const PaginaDibujo* pagina) {
        return (pagina->apaisada || todoApaisado) ? QPageLayout::Landscape : QPageLayout::Portrait;
    };

    dispositivo.setPageOrientation(orientacion(paginas.first()));
    QPainter p;
    if (!p.begin(&dispositivo))
        throw ErrorVB(75, QStringLiteral("Error de acceso a la ruta o al archivo"));
    for (int i = 0; i < paginas.size(); ++i) {
        if (i > 0) {
            dispositivo.setPageOrientation(orientacion(paginas[i]));
            dispositivo.newPage();
        }
        preparaTwips(p);
        if (conFondo)
            p.fillRect(p.window(), colorRuntime(paginas[i]->colorFondo));
        dibujaPagina(p, *paginas[i], true);
    }
    p.end();
    dispositivo.setPageOrientation(QPageLayout::Portrait);
}

void preparaPapel(QPagedPaintDevice& dispositivo, QPageSize::PageSizeId papel)
{
    dispositivo.setPageOrientation(QPageLayout::Portrait);
    dispositivo.setPageSize(QPageSize(papel));
    dispositivo.setPageMargins(QMarginsF(kMargenPdfMm, kMargenPdfMm, kMargenPdfMm, kMargenPdfMm), QPageLayout::Millimeter);
}

bool guardaPdf(const QString& ruta, const DocumentoSpool& doc, QPageSize::PageSizeId papel)
{
    QPdfWriter pdf(ruta);
    pdf.setResolution(kTwipsPorPulgada);
    preparaPapel(pdf, papel);
    pdf.setCreator(QStringLiteral("f931"));
    pdf.setTitle(QStringLiteral("Formulario 931"));
    try {
        imprimeDocumento(pdf, doc);
    } catch (const ErrorVB&) {
        return false;
    }
    return true;
}

QList<int> paginasDelInforme(const DocumentoSpool& doc)
{
    QList<int> numeros;
    int anterior = 1;
    for (const PaginaDibujo& hoja : doc.paginas) {
        const int numero = hoja.comandos.isEmpty() ? anterior : hoja.comandos.first().hoja + 1;
        numeros.append(numero);
        anterior = numero;
    }
    return numeros;
}

DocumentoSpool seleccionaHojas(const DocumentoSpool& doc, int desde, int hasta, int copias)
{
    DocumentoSpool elegido = doc;
    elegido.paginas.clear();
    const QList<int> numeros = paginasDelInforme(doc);
    for (int copia = 0; copia < qMax(1, copias); ++copia)
        for (int i = 0; i < doc.paginas.size(); ++i)
            if (numeros[i] >= desde && numeros[i] <= hasta)
                elegido.paginas.append(doc.paginas[i]);
    elegido.nTotHojas = qint16(elegido.paginas.size());
    return elegido;
}

void instalarDestinoImpresion(DestinoImpresion destino) { destinoInstalado() = std::move(destino); }

void enviaAImpresora(const DocumentoSpool& doc)
{
    if (destinoInstalado()) {
        destinoInstalado()(doc);
        return;
    }
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        throw ErrorVB(kErrSinImpresora, QStringLiteral("No existe una impresora seleccionada.Verifique."));
    QPrinter impresora(info, QPrinter::HighResolution);
    impresora.setDocName(QStringLiteral("Formulario 931"));
    imprimeDocumento(impresora, doc);
}

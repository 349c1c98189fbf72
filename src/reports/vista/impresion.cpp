#include "reports/vista/impresion.h"

#include "basic/msgbox.h"
#include "reports/reproduccion.h"
#include "shell/globales.h"
#include "shell/vista/ventanas.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

const QString kTituloImpresion = QStringLiteral("Impresión");

class DialogosDelSistema : public DialogosImpresion {
public:
    bool hayImpresoras() override { return !QPrinterInfo::availablePrinterNames().isEmpty(); }

    bool elegirImpresora(QPrinter& impresora, int desde, int hasta, QWidget* padre) override
    {
        QPrintDialog dialogo(&impresora, padre);
        dialogo.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange
                           | QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintShowPageSize);
        dialogo.setMinMax(desde, hasta);
        dialogo.setFromTo(desde, hasta);
        return dialogo.exec() == QDialog::Accepted;
    }

    QString elegirArchivoPdf(const QString& titulo, const QString& sugerido, QWidget* padre) override
    {
        return QFileDialog::getSaveFileName(padre, titulo, sugerido, QStringLiteral("PDF (*.pdf)"));
    }
};

DialogosImpresion*& dialogosInstalados()
{
    static DialogosImpresion* d = nullptr;
    return d;
}

QWidget* ventanaDeArriba()
{
    if (QWidget* w = QApplication::activeModalWidget())
        return w;
    if (QWidget* w = QApplication::activeWindow())
        return w;
    return ventanaPrincipal();
}

} // namespace

void instalarDialogosImpresion(DialogosImpresion* dialogos) { dialogosInstalados() = dialogos; }

DialogosImpresion& dialogosImpresion()
{
    static DialogosDelSistema sistema;
    return dialogosInstalados() ? *dialogosInstalados() : sistema;
}

QString archivoPdfSugerido()
{
    const Globales& g = G();
    QString nombre = QStringLiteral("Formulario 0931");
    if (!g.gsRucRpt.trimmed().isEmpty())
        nombre += QLatin1Char(' ') + g.gsRucRpt.trimmed() + QLatin1Char(' ') + g.gsPeriodoRpt.trimmed();
    return QDir::home().filePath(nombre.trimmed() + QStringLiteral(".pdf"));
}

QString guardaPdfConDialogo(const DocumentoSpool& doc, const QString& titulo, QWidget* padre)
{
    QString ruta = dialogosImpresion().elegirArchivoPdf(titulo, archivoPdfSugerido(), padre);
    if (ruta.isEmpty())
        return QString();
    if (!ruta.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        ruta += QStringLiteral(".pdf");
    if (!guardaPdf(ruta, doc)) {
        MsgBox(QStringLiteral("No se pudo grabar el archivo ") + ruta, vbCritical, titulo);
        return QString();
    }
    return ruta;
}

void imprimeEnEscritorio(const DocumentoSpool& doc)
{
    DialogosImpresion& dialogos = dialogosImpresion();
    QWidget* padre = ventanaDeArriba();
    if (!dialogos.hayImpresoras()) {
        // Without a printer the report can still go to paper later: as a PDF file.
        MsgBox(QStringLiteral("No existe una impresora seleccionada.Verifique."), vbCritical, kTituloImpresion);
        guardaPdfConDialogo(doc, QStringLiteral("Imprimir en archivo PDF"), padre);
        return;
    }

    const QList<int> paginas = paginasDelInforme(doc);
    if (paginas.isEmpty())
        return;
    const int desde = paginas.first();
    const int hasta = paginas.last();
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setDocName(QStringLiteral("Formulario 931"));
    impresora.setFromTo(desde, hasta);
    if (!dialogos.elegirImpresora(impresora, desde, hasta, padre))
        return;

    const bool porPaginas = impresora.printRange() == QPrinter::PageRange && impresora.fromPage() > 0;
    const int copias = impresora.supportsMultipleCopies() ? 1 : impresora.copyCount();
    const DocumentoSpool elegido = seleccionaHojas(doc, porPaginas ? impresora.fromPage() : desde,
                                                   porPaginas ? impresora.toPage() : hasta, copias);
    if (elegido.paginas.isEmpty())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        imprimeDocumento(impresora, elegido);
    } catch (...) {
        QApplication::restoreOverrideCursor();
        throw;
    }
    QApplication::restoreOverrideCursor();
}

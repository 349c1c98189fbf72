#pragma once
// Printing a replayed report on the desktop: the system's print dialog (printer, pages, copies)
// with the report's pages filled in, and, when the system has no printer at all, the message
// of the missing printer followed by the offer of a PDF file. The dialogs sit behind one small
// interface, so that tests answer them without a modal window.
#include "reports/spool.h"

#include <QString>

class QPrinter;
class QWidget;

class DialogosImpresion {
public:
    virtual ~DialogosImpresion() = default;
    // Whether the system has any printer installed.
    virtual bool hayImpresoras() = 0;
    // The print dialog over `impresora`, its pages held between `desde` and `hasta` (pages of
    // the report, counted from 1) and filled in with them. False when the user cancels.
    virtual bool elegirImpresora(QPrinter& impresora, int desde, int hasta, QWidget* padre) = 0;
    // A save dialog for a PDF file, starting at `sugerido`; empty when the user cancels.
    virtual QString elegirArchivoPdf(const QString& titulo, const QString& sugerido, QWidget* padre) = 0;
};

// nullptr: the system's dialogs (QPrintDialog, QFileDialog).
void instalarDialogosImpresion(DialogosImpresion* dialogos);
DialogosImpresion& dialogosImpresion();

// The destination of the print commands in the module (instalarDestinoImpresion): the print
// dialog, then the pages chosen, as many times as copies asked for when the printer cannot make
// copies itself. With no printer: "No existe una impresora seleccionada.Verifique.", then the
// save dialog of a PDF file.
void imprimeEnEscritorio(const DocumentoSpool& doc);

// Asks for a PDF file and writes the pages there; a file that cannot be written is told.
// Returns the path written, empty when cancelled or failed.
QString guardaPdfConDialogo(const DocumentoSpool& doc, const QString& titulo, QWidget* padre);

// Where the PDF dialog starts: the user's folder, the report's taxpayer and period in the name.
QString archivoPdfSugerido();

#include "reports/previa.h"

#include "basic/errores.h"
#include "basic/msgbox.h"
#include "family/cutilqvl.h"
#include "reports/reproduccion.h"
#include "shell/globales.h"

namespace {

AbridorPrevia& abridorInstalado()
{
    static AbridorPrevia abridor;
    return abridor;
}

const QString kPresPrevia = QStringLiteral("PresPrevia");

} // namespace

RangoHojas rangoVigente()
{
    const Globales& g = G();
    return RangoHojas{g.gbPorHojas != 0, g.gnHojaDesde, g.gnHojaHasta};
}

ModeloPrevia::ModeloPrevia()
{
    Elemento primero;   // element 0 exists at design time, visible, in the design colour
    primero.visible = true;
    picPrevia.append(primero);
}

void ModeloPrevia::Form_Load()
{
    Modo = kPresPrevia;
    pDesencripta(Archivo, Modo);
    if (!descargar)
        pMostrar(0);
}

void ModeloPrevia::pDesencripta(const QString& nombre, const QString& modo)
{
    if (modo != kPresPrevia)
        Modo = QStringLiteral("IMPRIMIR");
    const bool impresora = Modo != kPresPrevia;

    const QString ruta = rutaSpool(nombre);
    if (!gobjUtil().ExisteArchivo(ruta)) {
        MsgBox(QStringLiteral("Archivo Físico del Reporte no Existe"), vbCritical, QStringLiteral("Error al Imprimir"));
        return;
    }

    DocumentoSpool doc;
    try {
        doc = reproduceSpool(leeLineasSpool(ruta), impresora, rangoVigente(), nHojaActual);
    } catch (const ErrorVB& e) {
        doc.error = e.numero;
        doc.descripcionError = e.descripcion;
    }
    if (doc.error != 0) {
        if (doc.error == kErrSinMemoria)
            MsgBox(doc.descripcionError + QLatin1Char('\n') + QStringLiteral("Ingrese un rango de hojas menos ")
                       + QLatin1Char('\n') + QStringLiteral("voluminoso"),
                   vbCritical, QString::number(doc.error) + QStringLiteral(" Aviso:"));
        descargar = true;
        return;
    }

    nHojaActual = doc.nHojaActual;
    if (!impresora) {
        // The pictures are made once per replay: element 0 keeps its place, the others are
        // loaded hidden.
        QList<Elemento> elementos;
        for (int i = 0; i < doc.paginas.size(); ++i) {
            Elemento e;
            e.pagina = doc.paginas[i];
            e.visible = i == 0 ? picPrevia.value(0).visible : false;
            elementos.append(e);
        }
        picPrevia = elementos;
        nTotHojas = doc.nTotHojas;
        orientacion_ = doc.orientacion;
        return;
    }

    // Printing leaves the pictures, and so the count of pages on view, as they are.
    try {
        enviaAImpresora(doc);
    } catch (const ErrorVB& e) {
        if (e.numero == kErrSinImpresora)
            MsgBox(QStringLiteral("No existe una impresora seleccionada.Verifique."), vbCritical,
                   QStringLiteral("Impresión"));
    }
}

void ModeloPrevia::mostrarSolo(qint16 hoja)
{
    if (hoja >= 0 && hoja < picPrevia.size())
        picPrevia[hoja].visible = true;
    for (int i = 0; i < nTotHojas && i < picPrevia.size(); ++i)
        if (i != hoja)
            picPrevia[i].visible = false;
}

void ModeloPrevia::pMostrar(qint16 n)
{
    if (n == -2 || n == -1) {
        if (n == -2 && hayAnterior())
            --nHojaActual;
        else if (n == -1 && haySiguiente())
            ++nHojaActual;
        mostrarSolo(nHojaActual);
    } else if (n == 0) {
        // The first page comes forward; the others keep their state.
        picPrevia[0].visible = true;
        nHojaActual = 0;
    }
}

void ModeloPrevia::pIrA(qint16 hoja)
{
    nHojaActual = qBound<qint16>(0, hoja, qint16(qMax(0, nTotHojas - 1)));
    mostrarSolo(nHojaActual);
}

void ModeloPrevia::tlbPrevia_ButtonClick(int indice)
{
    switch (indice) {
    case 2:
        pMostrar(-2);
        break;
    case 3:
        pMostrar(-1);
        break;
    case 4:
        Modo = QStringLiteral("IMPRIMIR");
        pDesencripta(Archivo, Modo);
        break;
    case 5:
        descargar = true;
        break;
    default:
        break;
    }
}

int ModeloPrevia::elementoVisible() const
{
    if (nHojaActual >= 0 && nHojaActual < picPrevia.size() && picPrevia[nHojaActual].visible)
        return nHojaActual;
    for (int i = 0; i < picPrevia.size(); ++i)
        if (picPrevia[i].visible)
            return i;
    return -1;
}

DocumentoSpool ModeloPrevia::documento() const
{
    DocumentoSpool doc;
    doc.orientacion = orientacion_;
    doc.paginas.clear();
    for (int i = 0; i < nTotHojas; ++i) {
        PaginaDibujo hoja = i < picPrevia.size() ? picPrevia[i].pagina : PaginaDibujo{};
        if (!hoja.cargada) {
            hoja = PaginaDibujo{};
            hoja.colorFondo = picPrevia.value(0).pagina.colorFondo;
        }
        doc.paginas.append(hoja);
    }
    doc.colorFondo = picPrevia.value(0).pagina.colorFondo;
    doc.nTotHojas = nTotHojas;
    return doc;
}

bool ModeloPrevia::guardarPdf(const QString& ruta) const { return guardaPdf(ruta, documento()); }

void instalarAbridorPrevia(AbridorPrevia abridor) { abridorInstalado() = std::move(abridor); }

void pAbrePrevia(const QString& nombre, const QString& palabra)
{
    if (palabra == QLatin1String("Vprevia")) {
        if (abridorInstalado())
            abridorInstalado()(nombre);
        return;
    }
    ModeloPrevia oculta;
    oculta.Archivo = nombre;
    oculta.pDesencripta(nombre, palabra);
}

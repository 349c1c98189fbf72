#include "shell/comandos.h"

#include "basic/formato.h"
#include "basic/periodo.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"

namespace {

std::function<void(const EstadoBarra&)>& avisoBarra()
{
    static std::function<void(const EstadoBarra&)> aviso;
    return aviso;
}

void avisar()
{
    if (avisoBarra())
        avisoBarra()(barraEstado());
}

template <typename F, typename... A>
void llamar(const F& f, A&&... args)
{
    if (f)
        f(std::forward<A>(args)...);
}

void espera() { llamar(abridores().puntero, true); }
void normal() { llamar(abridores().puntero, false); }

QString anhoDeHoy() { return Format(Hoy(), QStringLiteral("yyyy")); }

}  // namespace

EstadoBarra& barraEstado()
{
    static EstadoBarra estado;
    return estado;
}

void alCambiarBarra(std::function<void(const EstadoBarra&)> aviso)
{
    avisoBarra() = std::move(aviso);
}

QString periodoEnBarra(const QString& periodo)
{
    if (Len(Trim(periodo)) <= 5)
        return QString();
    return Left(periodo, 4) + QStringLiteral("/") + mesDelPeriodo(periodo);
}

void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario)
{
    EstadoBarra& b = barraEstado();
    b.Modo = 1;
    b.PanelRuc = ruc;
    b.PanelNombre = nombre;
    b.PanelPeriodo = periodoEnBarra(periodo);
    b.PanelFormulario = formulario;
    avisar();
}

void ponerPaneles(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario)
{
    EstadoBarra& b = barraEstado();
    b.Modo = 1;
    b.PanelRuc = ruc;
    b.PanelNombre = nombre;
    b.PanelPeriodo = periodo;
    b.PanelFormulario = formulario;
    avisar();
}

void limpiarPanelNombre()
{
    barraEstado().PanelNombre.clear();
    avisar();
}

Abridores& abridores()
{
    static Abridores a;
    return a;
}

void instalarAbridores(Abridores a)
{
    abridores() = std::move(a);
}

void mnuNueva_Click()
{
    limpiarPanelNombre();
    espera();
    Globales& g = G();
    g.gbEnviada = false;
    g.gsPeriodoSel.clear();
    g.giOpcion = 0;
    g.gsPeriodo = anhoDeHoy();
    llamar(abridores().declaracion, qint16(0), QStringList());
    normal();
}

void mnuModificar_Click()
{
    limpiarPanelNombre();
    Globales& g = G();
    g.giOpcion = 1;
    g.gbImpEnviada = false;
    g.gbEnviada = false;
    llamar(abridores().contAbrir, qint16(1));
    normal();
}

void mnuEliminar_Click()
{
    limpiarPanelNombre();
    G().gbEnviada = false;
    llamar(abridores().contAbrir, qint16(3));
    normal();
}

void mnuImprimir_Click()
{
    limpiarPanelNombre();
    G().gbImpEnviada = false;
    G().gbEnviada = false;
    llamar(abridores().imprimir, qint16(1));
}

void mnuSalir_Click()
{
    limpiarPanelNombre();
    pCerrarPrograma();
}

void mnuRegistrar_Click()
{
    espera();
    Globales& g = G();
    g.gbEnviada = true;
    g.giOpcion = 2;
    g.gbImpEnviada = true;
    llamar(abridores().contAbrirEnv);
    normal();
}

void mnuEliminar1_Click()
{
    limpiarPanelNombre();
    espera();
    Globales& g = G();
    g.gbEnviada = true;
    g.giOpcion = 3;
    g.gbImpEnviada = true;
    llamar(abridores().contAbrirEnv);
    normal();
}

void mnuImprimir1_Click()
{
    limpiarPanelNombre();
    G().gbEnviada = true;
    G().gbImpEnviada = true;
    llamar(abridores().imprimir, qint16(-1));
}

void mnuFactores_Click()
{
    limpiarPanelNombre();
    llamar(abridores().consFac);
}

namespace {
void consulta(qint16 opcion)
{
    limpiarPanelNombre();
    G().giOpcion = opcion;
    llamar(abridores().consultas);
}
}  // namespace

void mnuDocIdent_Click() { consulta(1); }
void mnupais_Click() { consulta(2); }
void mnuUIT_Click() { consulta(3); }

void MostrarHelp()
{
    limpiarPanelNombre();
    llamar(abridores().ayuda);
}

void mnuContenido_Click() { MostrarHelp(); }

void mnuAcercade_Click()
{
    espera();
    llamar(abridores().acercade);
    normal();
}

void tlbMenu_ButtonClick(int indice)
{
    switch (indice) {
    case 1:
        G().gsPeriodo = anhoDeHoy();
        mnuNueva_Click();
        break;
    case 2: mnuModificar_Click(); break;
    case 3: mnuEliminar_Click(); break;
    case 4: mnuImprimir_Click(); break;
    case 5: mnuSalir_Click(); break;
    case 7: mnuRegistrar_Click(); break;
    case 10: MostrarHelp(); break;
    default: break;
    }
}

bool barraLimpiaNombre(int x, const QList<BotonBarra>& botones)
{
    for (int indice : {1, 2, 3, 4, 6, 8}) {
        if (indice > botones.size())
            continue;
        const BotonBarra& b = botones[indice - 1];
        if (x >= b.izquierda && x <= b.izquierda + b.ancho)
            return false;
    }
    return true;
}

void pCerrarPrograma()
{
    cerrarBase();
    G().gdbBase.clear();
    delete G().gobjUtil;
    G().gobjUtil = nullptr;
    llamar(abridores().cerrarVentana);
}

#pragma once
// A new declaration opened as "&Nueva" opens it, driven as the user drives the window: pick a
// taxpayer, type a telephone, choose the regime and the payment block, then type amounts box
// by box and leave them.
#include "comun/base_prueba.h"

#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "form931/frm931.h"
#include "form931/guion.h"
#include "shell/globales.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <memory>

// The surroundings without a screen, counting the annexes opened and noting the caption the
// geographic picker is opened with.
class EntornoPrueba : public EntornoSinPantalla {
public:
    void abrirAnexo477(Frm931& frm, int nCasilla) override
    {
        ++anexosAbiertos;
        EntornoSinPantalla::abrirAnexo477(frm, nCasilla);
    }
    void abrirUbigeo(const QString& caption) override
    {
        captionUbigeo = caption;
        EntornoSinPantalla::abrirUbigeo(caption);
    }
    QString captionUbigeo;
    int anexosAbiertos = 0;
};

class FormularioNuevo : public PruebaConBase {
protected:
    EntornoPrueba entorno;
    std::unique_ptr<Frm931> frm;
    Frm931& f() { return *frm; }

    // "&Nueva" in November of the year given: the period holds only the year.
    void abrir(const QString& anio = QStringLiteral("2026"))
    {
        fijarHoy(QDate(anio.toInt(), 11, 22));
        G().gbEnviada = false;
        G().gsPeriodoSel.clear();
        G().giOpcion = 0;
        G().gsPeriodo = anio;
        frm = std::make_unique<Frm931>(&entorno);
        frm->miModo = 0;
        frm->Form_Load();
        frm->Form_Activate();
    }
    void TearDown() override { fijarHoy(QDate()); }
    void contribuyente(const QString& ruc = DatosDemo::kRucAndina)
    {
        for (int i = 0; i < f().CmbRuc.items.size(); ++i)
            if (f().CmbRuc.items[i].startsWith(ruc)) {
                f().elegir(f().CmbRuc, i);
                return;
            }
        ADD_FAILURE() << "no está en la lista: " << ruc.toStdString();
    }
    // Up to the amounts: taxpayer, telephone, regime (and person), start of activities "Si"
    // and the balance date.
    void identificar(int regimen, int persona = 0, int balance = 1)
    {
        contribuyente();
        f().escribirControl(QStringLiteral("TxtTelefono"), QStringLiteral("4445555"));
        f().marcar(f().optRenta, regimen);
        if (persona >= 0 && (regimen == 0 || regimen == 5))
            f().marcar(f().OptPersona, persona);
        f().marcar(f().OptInicio, 1);
        if (balance >= 0)
            f().elegir(f().CboBalance, balance);
    }
    // Types a figure in a box and leaves it, as the user does with the mouse.
    void escribir(int n, const QString& texto)
    {
        // The asset side shows one of its two halves at a time.
        if (n >= 500 && n <= 515)
            f().ponerVScroll(1);
        else if (n >= 516 && n <= 531)
            f().ponerVScroll(15);
        f().darFocoCasilla(n);
        f().teclear(n, texto);
        f().darFoco(QStringLiteral("CmdValidar"));
    }
    QString t(int n) { return f().txt(n); }
    QStringList mensajes() { return familia.respondedor().textos(); }
    void responder(std::initializer_list<int> botones)
    {
        for (int b : botones)
            familia.respondedor().respuestas << b;
    }
};

#pragma once
// The dialog of a carried-forward tax loss as a presentation model: the year and the amount of
// one row of F0931_PTCEA, new or changed. Exchanges with the declaration form through
// G().gsRucPerdida, gsModoPerdida ("0" new, "1" change), gsAnhoPerdida and gsImportePerdida;
// the rows go straight to the database when accepted.
#include <QString>

class FrmPerdidaEjercAnt {
public:
    static QString captionFormulario() { return QStringLiteral("Pérdida tributaria compensable de Ejercicios anteriores"); }
    static QString captionAccion(int Index) { return Index == 0 ? QStringLiteral("&Aceptar") : QStringLiteral("&Salir"); }
    static inline const QString kAnhoVacio = QStringLiteral("____");
    static inline const QString kSinSeparadores = QStringLiteral("###########0");
    static inline const QString kConSeparadores = QStringLiteral("###,###,###,##0");

    QString Caption = captionFormulario();
    struct {
        QString Text = kAnhoVacio;   // the masked box: "_" marks an empty place
        bool Enabled = true;
    } MkeAnho;
    struct {
        QString Text;
        int MaxLength = 12;
    } txtImporte;
    QString foco;                    // "MkeAnho" or "txtImporte"
    bool cerrado = false;

    // A year of a loss: from 1950 to the year before today's.
    static bool anhoValido(const QString& anho);

    void Form_Load();
    void Form_Activate();
    void MkeAnho_LostFocus();
    void txtImporte_GotFocus();
    void txtImporte_LostFocus();
    // 0 "&Aceptar", 1 "&Salir".
    void cmdAccion_Click(int Index);

private:
    bool validarAnho();              // the message and the focus back when the year is wrong
};

#pragma once
// The annex of casillas 473 and 477 as a presentation model: it splits the figure of one box of
// the declaration into two parts, read from and written to the declaration form's boxes
// (477 into 432 and 433, 473 into 650 and 651). It keeps nothing of its own.
#include "form931/controles.h"

#include <QMap>
#include <QString>

class Frm931;

class FrmAnexo477 {
public:
    FrmAnexo477() = default;
    explicit FrmAnexo477(Frm931& frm) : frm(&frm) {}

    Frm931* frm = nullptr;           // the open declaration
    qint16 nCasilla = 477;           // 477 or 473, set before Form_Load
    QString Caption = QStringLiteral("Detalle Casilla 477");
    QMap<int, QString> lblCas;       // 0, 1: the two casilla numbers; 5, 6: the parts' labels
    QString Label1 = QStringLiteral("Total");
    Caja TxtMonto[2];
    Caja TxtTotal;
    bool cerrado = false;            // the dialog unloaded itself (either button)
    bool aceptado = false;           // ... through "&Aceptar"
    QString CmdGrabarCaption = QStringLiteral("&Aceptar");
    QString cmdCancelarCaption = QStringLiteral("&Cancelar");

    // Boxes of the declaration: the two parts and the total, by nCasilla.
    int casillaParte(int i) const;
    int casillaTotal() const { return nCasilla == 477 ? 477 : 473; }

    void Form_Load();
    void Form_Load(Frm931& f) { frm = &f; Form_Load(); }
    // Writes a part's text; raises TxtMonto_Change only when it differs.
    void setMonto(int i, const QString& texto);
    void TxtMonto_Change(int Index);
    void TxtMonto_GotFocus(int Index);
    void TxtMonto_LostFocus(int Index);
    // The key to type (0: dropped). Enter moves to the next control (foco).
    int TxtMonto_KeyPress(int Index, int KeyAscii);
    // Typing a whole text into a part as a user would.
    void teclear(int Index, const QString& texto);
    void CmdGrabar_Click();
    void CmdGrabar_Click(Frm931& f) { frm = &f; CmdGrabar_Click(); }
    void cmdCancelar_Click();

    // The control with the focus: "TxtMonto(0)", "TxtMonto(1)", "CmdGrabar", "cmdCancelar".
    QString foco = QStringLiteral("TxtMonto(0)");
};

#pragma once
// What the declaration window shows, held as plain state: the presentation model writes it,
// the view mirrors it. Field names follow the properties of the classic controls.
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

inline constexpr quint32 kBlanco = 0xFFFFFF;
inline constexpr quint32 kGris = 0xC0C0C0;
inline constexpr quint32 kAsistente = 0xFFFF00;   // blue-green-red order: a cyan on screen
inline constexpr quint32 kNegro = 0x000000;
inline constexpr quint32 kAzulAyuda = 0xC00000;   // blue-green-red order: a dark blue

// A single-line text box (also a masked box: then `Mask` holds its empty picture, e.g.
// "__/__/____", and `Text` always reads with the mask characters, never Qt's "//").
struct Caja {
    QString Text;
    bool Locked = false;
    bool Enabled = true;
    bool Visible = true;
    quint32 BackColor = kBlanco;
    int MaxLength = 0;           // 0: no limit
    QString Mask;                // empty: a plain box
};

struct BotonOpcion {
    QString Caption;
    bool Value = false;
    bool Enabled = true;
    bool Visible = true;
};

// An option group (a control array of option buttons sharing a container).
struct GrupoOpciones {
    QVector<BotonOpcion> b;
    int seleccionado() const {
        for (int i = 0; i < b.size(); ++i)
            if (b[i].Value) return i;
        return -1;
    }
    bool contestado() const { return seleccionado() >= 0; }
    bool valor(int i) const { return i >= 0 && i < b.size() && b[i].Value; }
    void apagar() { for (auto& x : b) x.Value = false; }
    void habilitar(bool si) { for (auto& x : b) x.Enabled = si; }
    void mostrar(bool si) { for (auto& x : b) x.Visible = si; }
};

struct Lista {                   // combo box
    QStringList items;
    int ListIndex = -1;
    bool Enabled = true;
    bool Visible = true;
    quint32 BackColor = kBlanco;
    QString Text() const { return ListIndex >= 0 && ListIndex < items.size() ? items[ListIndex] : QString(); }
};

struct Etiqueta {
    QString Caption;
    bool Enabled = true;
    bool Visible = true;
    quint32 ForeColor = kNegro;
};

struct Marco {                   // frame
    QString Caption;
    bool Enabled = true;
    bool Visible = true;
};

struct Boton {                   // command button
    QString Caption;
    bool Enabled = true;
    bool Visible = true;
    bool Default = false;
    int Left = 0;                // twips; 0: the view's own layout
    int Width = 0;
};

struct Pestanas {                // tab control
    int Tab = 0;
    QStringList captions;
    QVector<bool> TabEnabled;
    QVector<bool> TabVisible;
    int HelpContextID = 0;
};

struct BarraDesplazamiento {     // VScroll1
    int Value = 1;
    int Min = 1;
    int Max = 15;
    int SmallChange = 15;
    int LargeChange = 15;
};

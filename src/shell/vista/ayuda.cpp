#include "shell/vista/ayuda.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTimer>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "shell/arranque.h"

namespace {

const QString kPrimeraPagina = QStringLiteral("Ql931.html");
const QString kContenido = QStringLiteral("contenido.txt");

// Lower case and without accents, so that "area" finds "Área".
QString plegar(const QString& texto)
{
    const QString d = texto.toLower().normalized(QString::NormalizationForm_D);
    QString r;
    r.reserve(d.size());
    for (QChar c : d)
        if (c.category() != QChar::Mark_NonSpacing)
            r += c;
    return r;
}

QString leerTexto(const QString& archivo)
{
    QFile f(archivo);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(f.readAll());
}

QUrl urlDe(const QString& carpeta, const QString& destino)
{
    const qsizetype almohadilla = destino.indexOf(QLatin1Char('#'));
    const QString pagina = almohadilla < 0 ? destino : destino.left(almohadilla);
    QUrl url = carpeta.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + carpeta + QLatin1Char('/') + pagina)
                                                    : QUrl::fromLocalFile(carpeta + QLatin1Char('/') + pagina);
    if (almohadilla >= 0)
        url.setFragment(destino.mid(almohadilla + 1));
    return url;
}

QString destinoDe(const QUrl& url)
{
    return url.fileName() + (url.hasFragment() ? QLatin1Char('#') + url.fragment() : QString());
}

// The page browser: the family's copy of the first page, when there is one, stands for it.
class NavegadorAyuda : public QTextBrowser {
public:
    NavegadorAyuda(const QString& primera, QWidget* padre) : QTextBrowser(padre), primera_(primera) {}

    QVariant loadResource(int tipo, const QUrl& url) override
    {
        if (tipo == QTextDocument::HtmlResource && url.fileName() == kPrimeraPagina && !primera_.isEmpty() &&
            QFileInfo::exists(primera_)) {
            const QString html = leerTexto(primera_);
            if (!html.isEmpty())
                return html;
        }
        return QTextBrowser::loadResource(tipo, url);
    }

private:
    QString primera_;
};

// What each page says, and where each of its anchors begins, for the search.
struct TextoPagina {
    QString texto;
    QHash<QString, int> anclas;
};

TextoPagina leerPagina(const QString& html)
{
    QTextDocument doc;
    doc.setHtml(html);
    TextoPagina p;
    p.texto = doc.toPlainText();
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        // A heading carries its anchor on the block; a word of the text, on its fragment.
        for (const QString& a : b.charFormat().anchorNames())
            if (!p.anclas.contains(a))
                p.anclas.insert(a, b.position());
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            for (const QString& a : f.charFormat().anchorNames())
                if (!p.anclas.contains(a))
                    p.anclas.insert(a, f.position());
            // A link names another page: its words are that page's, not this one's.
            if (!f.charFormat().anchorHref().isEmpty())
                p.texto.replace(f.position(), f.length(), QString(f.length(), QLatin1Char(' ')));
        }
    }
    return p;
}

// The text of one entry: the whole page, or its section from the anchor to the next anchor.
QString textoDeEntrada(const TextoPagina& p, const QString& ancla)
{
    if (ancla.isEmpty())
        return p.texto;
    const int desde = p.anclas.value(ancla, -1);
    if (desde < 0)
        return p.texto;
    int hasta = static_cast<int>(p.texto.size());
    for (int pos : p.anclas)
        if (pos > desde && pos < hasta)
            hasta = pos;
    return p.texto.mid(desde, hasta - desde);
}

QPointer<VentanaAyuda>& visor()
{
    static QPointer<VentanaAyuda> v;
    return v;
}

class TeclaAyuda : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* objeto, QEvent* e) override
    {
        if (e->type() != QEvent::KeyPress)
            return false;
        const auto* k = static_cast<QKeyEvent*>(e);
        if (k->key() != Qt::Key_F1 || (k->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return false;
        QWidget* ventana = objeto->isWidgetType() ? static_cast<QWidget*>(objeto)->window() : QApplication::activeWindow();
        // A list or menu that pops up belongs to the window under it.
        while (ventana && ventana->windowType() == Qt::Popup && ventana->parentWidget())
            ventana = ventana->parentWidget()->window();
        if (!ventana)
            return false;
        if (qobject_cast<VentanaAyuda*>(ventana))
            return true;
        mostrarAyudaEn(destinoDeVentana(contenidoAyuda(carpetaAyudaIncluida()), ventana), ventana);
        return true;
    }
};

}  // namespace

QString carpetaAyudaIncluida()
{
    // Beside an installed program first (bin/../share/qualvia/ayuda), then the copy built in.
    const QString instalada =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/qualvia/ayuda"));
    if (QFileInfo::exists(instalada + QLatin1Char('/') + kContenido))
        return instalada;
    return QStringLiteral(":/ayuda");
}

QString archivoAyudaIncluido()
{
    return carpetaAyudaIncluida() + QLatin1Char('/') + kPrimeraPagina;
}

QList<EntradaAyuda> contenidoAyuda(const QString& carpeta)
{
    QList<EntradaAyuda> lista;
    const QStringList lineas = leerTexto(carpeta + QLatin1Char('/') + kContenido).split(QLatin1Char('\n'));
    for (const QString& linea : lineas) {
        if (linea.trimmed().isEmpty() || linea.startsWith(QLatin1Char('#')))
            continue;
        qsizetype blancos = 0;
        while (blancos < linea.size() && linea.at(blancos) == QLatin1Char(' '))
            ++blancos;
        const QStringList campos = linea.mid(blancos).split(QLatin1Char('\t'));
        if (campos.size() < 2)
            continue;
        EntradaAyuda e;
        e.destino = campos.at(0).trimmed();
        e.titulo = campos.at(1).trimmed();
        e.nivel = static_cast<int>(blancos / 2);
        if (campos.size() > 2)
            e.ventanas = campos.at(2).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        lista.append(e);
    }
    return lista;
}

QString destinoDeVentana(const QList<EntradaAyuda>& contenido, const QWidget* ventana)
{
    if (!ventana)
        return kPrimeraPagina;
    const QStringList nombres = {ventana->objectName(), QString::fromLatin1(ventana->metaObject()->className())};
    // The section of a tab in front: "ventana/pestañas/página".
    for (const EntradaAyuda& e : contenido) {
        for (const QString& clave : e.ventanas) {
            const QStringList partes = clave.split(QLatin1Char('/'));
            if (partes.size() != 3 || !nombres.contains(partes.at(0)))
                continue;
            const auto* pestanas = ventana->findChild<QTabWidget*>(partes.at(1));
            if (pestanas && pestanas->currentIndex() == partes.at(2).toInt())
                return e.destino;
        }
    }
    for (const EntradaAyuda& e : contenido)
        for (const QString& clave : e.ventanas)
            if (!clave.contains(QLatin1Char('/')) && nombres.contains(clave))
                return e.destino;
    return kPrimeraPagina;
}

// ---------------------------------------------------------------------------- the window

VentanaAyuda::VentanaAyuda(const QString& primera, QWidget* padre) : QDialog(padre, Qt::Window)
{
    setObjectName(QStringLiteral("CMDlgHlp"));
    setWindowTitle(QStringLiteral("Ayuda - 0931 Modificación de coeficiente o porcentaje"));

    const QString carpeta = carpetaAyudaIncluida();
    contenido_ = contenidoAyuda(carpeta);

    txtBuscar = new QLineEdit(this);
    txtBuscar->setObjectName(QStringLiteral("txtBuscar"));
    txtBuscar->setClearButtonEnabled(true);
    auto* etiquetaBuscar = new QLabel(QStringLiteral("&Buscar:"), this);
    etiquetaBuscar->setBuddy(txtBuscar);
    lblHallados = new QLabel(this);
    lblHallados->setObjectName(QStringLiteral("lblHallados"));

    trvContenido = new QTreeWidget(this);
    trvContenido->setObjectName(QStringLiteral("trvContenido"));
    trvContenido->setHeaderHidden(true);
    trvContenido->setColumnCount(1);
    trvContenido->setAccessibleName(QStringLiteral("Contenido"));
    QList<QTreeWidgetItem*> padres;
    QHash<QString, TextoPagina> paginas;
    for (const EntradaAyuda& e : std::as_const(contenido_)) {
        const int nivel = qMin<int>(e.nivel, static_cast<int>(padres.size()));
        padres.resize(nivel);
        auto* item = nivel == 0 ? new QTreeWidgetItem(trvContenido) : new QTreeWidgetItem(padres.last());
        item->setText(0, e.titulo);
        item->setData(0, Qt::UserRole, e.destino);
        padres.append(item);

        const QString pagina = e.destino.section(QLatin1Char('#'), 0, 0);
        if (!paginas.contains(pagina)) {
            QString html = pagina == kPrimeraPagina && QFileInfo::exists(primera) ? leerTexto(primera) : QString();
            if (html.isEmpty())
                html = leerTexto(carpeta + QLatin1Char('/') + pagina);
            paginas.insert(pagina, leerPagina(html));
        }
        textos_.append(plegar(e.titulo + QLatin1Char('\n') +
                              textoDeEntrada(paginas.value(pagina), e.destino.section(QLatin1Char('#'), 1))));
    }
    trvContenido->expandAll();

    texto = new NavegadorAyuda(primera, this);
    texto->setObjectName(QStringLiteral("texto"));
    texto->setAccessibleName(QStringLiteral("Página de ayuda"));
    texto->setOpenExternalLinks(false);
    texto->setSearchPaths({carpeta});
    // One look for every page, the family's own first page included.
    texto->document()->setDefaultStyleSheet(QStringLiteral(
        " body { font-family: sans-serif; font-size: 10pt; }\n"
        " h1 { font-size: 15pt; color: #16406b; }\n"
        " h2 { font-size: 12pt; color: #16406b; margin-top: 18px; }\n"
        " td, th { padding: 2px 6px; vertical-align: top; }\n"
        " th { background: #dde8f3; text-align: left; }\n"
        " .nota { background: #fff8d8; padding: 4px; }\n"));

    cmdAtras = new QPushButton(QStringLiteral("&Atrás"), this);
    cmdAtras->setObjectName(QStringLiteral("cmdAtras"));
    cmdAdelante = new QPushButton(QStringLiteral("A&delante"), this);
    cmdAdelante->setObjectName(QStringLiteral("cmdAdelante"));
    cmdCerrar = new QPushButton(QStringLiteral("&Cerrar"), this);
    cmdCerrar->setObjectName(QStringLiteral("cmdCerrar"));
    for (QPushButton* b : {cmdAtras, cmdAdelante, cmdCerrar})
        b->setAutoDefault(false);
    cmdAtras->setEnabled(false);
    cmdAdelante->setEnabled(false);

    auto* izquierda = new QWidget(this);
    auto* capaIzquierda = new QVBoxLayout(izquierda);
    capaIzquierda->setContentsMargins(0, 0, 0, 0);
    auto* filaBuscar = new QHBoxLayout;
    filaBuscar->addWidget(etiquetaBuscar);
    filaBuscar->addWidget(txtBuscar, 1);
    capaIzquierda->addLayout(filaBuscar);
    capaIzquierda->addWidget(lblHallados);
    capaIzquierda->addWidget(trvContenido, 1);

    auto* division = new QSplitter(this);
    division->addWidget(izquierda);
    division->addWidget(texto);
    division->setStretchFactor(1, 1);
    division->setSizes({230, 560});

    auto* botones = new QHBoxLayout;
    botones->addWidget(cmdAtras);
    botones->addWidget(cmdAdelante);
    botones->addStretch(1);
    botones->addWidget(cmdCerrar);
    auto* capa = new QVBoxLayout(this);
    capa->addWidget(division, 1);
    capa->addLayout(botones);
    resize(820, 560);

    connect(txtBuscar, &QLineEdit::textChanged, this, &VentanaAyuda::buscar);
    connect(txtBuscar, &QLineEdit::returnPressed, this, &VentanaAyuda::abrirPrimeraHallada);
    connect(trvContenido, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* actual) { elegido(actual); });
    connect(trvContenido, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { elegido(item); });
    // A page reached by a link, the contents or the buttons: the contents follow it.
    const auto seguir = [this] {
        marcarEnContenido();
        resaltar();
    };
    connect(texto, &QTextBrowser::sourceChanged, this, seguir);
    connect(texto, &QTextBrowser::historyChanged, this, seguir);
    connect(texto, &QTextBrowser::backwardAvailable, cmdAtras, &QPushButton::setEnabled);
    connect(texto, &QTextBrowser::forwardAvailable, cmdAdelante, &QPushButton::setEnabled);
    connect(cmdAtras, &QPushButton::clicked, texto, &QTextBrowser::backward);
    connect(cmdAdelante, &QPushButton::clicked, texto, &QTextBrowser::forward);
    connect(cmdCerrar, &QPushButton::clicked, this, &QDialog::close);
}

void VentanaAyuda::ir(const QString& destino)
{
    const QUrl url = urlDe(carpetaAyudaIncluida(), destino.isEmpty() ? kPrimeraPagina : destino);
    if (texto->source() == url) {
        if (url.hasFragment())
            texto->scrollToAnchor(url.fragment());
        return;
    }
    texto->setSource(url);
}

QString VentanaAyuda::destino() const
{
    return destinoDe(texto->source());
}

QStringList VentanaAyuda::paginasHalladas() const
{
    QStringList titulos;
    if (palabras_.isEmpty())
        return titulos;
    for (QTreeWidgetItemIterator it(trvContenido); *it; ++it)
        if ((*it)->data(0, Qt::UserRole + 1).toBool())
            titulos << (*it)->text(0);
    return titulos;
}

void VentanaAyuda::buscar(const QString& palabras)
{
    palabras_ = palabras.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    QStringList plegadas;
    for (const QString& p : std::as_const(palabras_))
        plegadas << plegar(p);

    // An entry stays when it holds every word; its parents stay to keep it in place.
    int hallados = 0;
    int i = 0;
    for (QTreeWidgetItemIterator it(trvContenido); *it; ++it, ++i) {
        const QString& t = textos_.value(i);
        const bool halla = !plegadas.isEmpty() &&
                           std::all_of(plegadas.cbegin(), plegadas.cend(), [&t](const QString& p) { return t.contains(p); });
        (*it)->setData(0, Qt::UserRole + 1, halla);
        hallados += halla ? 1 : 0;
        (*it)->setHidden(!plegadas.isEmpty() && !halla);
    }
    if (!plegadas.isEmpty()) {
        for (QTreeWidgetItemIterator it(trvContenido); *it; ++it)
            if (!(*it)->isHidden())
                for (QTreeWidgetItem* p = (*it)->parent(); p; p = p->parent())
                    p->setHidden(false);
    }
    if (plegadas.isEmpty())
        lblHallados->clear();
    else if (hallados == 0)
        lblHallados->setText(QStringLiteral("Ninguna página contiene esas palabras."));
    else if (hallados == 1)
        lblHallados->setText(QStringLiteral("1 página hallada."));
    else
        lblHallados->setText(QStringLiteral("%1 páginas halladas.").arg(hallados));
    resaltar();
}

void VentanaAyuda::abrirPrimeraHallada()
{
    for (QTreeWidgetItemIterator it(trvContenido); *it; ++it) {
        if ((*it)->data(0, Qt::UserRole + 1).toBool()) {
            trvContenido->setCurrentItem(*it);
            elegido(*it);
            return;
        }
    }
}

void VentanaAyuda::elegido(QTreeWidgetItem* item)
{
    if (!item || sincronizando_)
        return;
    ir(item->data(0, Qt::UserRole).toString());
}

void VentanaAyuda::marcarEnContenido()
{
    // The entry of the page shown: its section when the contents has it, else the page.
    const QString actual = destino();
    const QString pagina = actual.section(QLatin1Char('#'), 0, 0);
    QTreeWidgetItem* elegida = nullptr;
    for (QTreeWidgetItemIterator it(trvContenido); *it; ++it) {
        const QString d = (*it)->data(0, Qt::UserRole).toString();
        if (d == actual) {
            elegida = *it;
            break;
        }
        if (!elegida && d == pagina)
            elegida = *it;
    }
    if (elegida && trvContenido->currentItem() != elegida) {
        sincronizando_ = true;
        trvContenido->setCurrentItem(elegida);
        sincronizando_ = false;
    }
}

// A word as a pattern that also takes its accented letters: "numero" marks "número".
static QRegularExpression patronDe(const QString& palabra)
{
    static const QHash<QChar, QString> variantes = {
        {u'a', QStringLiteral("[aáà]")}, {u'e', QStringLiteral("[eéè]")}, {u'i', QStringLiteral("[iíì]")},
        {u'o', QStringLiteral("[oóò]")}, {u'u', QStringLiteral("[uúùü]")}, {u'n', QStringLiteral("[nñ]")}};
    QString patron;
    for (QChar c : plegar(palabra))
        patron += variantes.value(c, QRegularExpression::escape(QString(c)));
    return QRegularExpression(patron, QRegularExpression::CaseInsensitiveOption);
}

void VentanaAyuda::resaltar()
{
    QList<QTextEdit::ExtraSelection> marcas;
    QTextCursor primera;
    for (const QString& p : std::as_const(palabras_)) {
        const QRegularExpression patron = patronDe(p);
        QTextCursor c(texto->document());
        while (!(c = texto->document()->find(patron, c)).isNull()) {
            QTextEdit::ExtraSelection s;
            s.cursor = c;
            s.format.setBackground(QColor(0xff, 0xe0, 0x66));
            marcas.append(s);
            if (primera.isNull() || c.position() < primera.position())
                primera = c;
        }
    }
    texto->setExtraSelections(marcas);
    // A page opened from the search shows its first finding, unless it was asked at a section.
    if (!primera.isNull() && !texto->source().hasFragment()) {
        QTextCursor sinSeleccion(primera);
        sinSeleccion.clearSelection();
        texto->setTextCursor(sinSeleccion);
        texto->ensureCursorVisible();
    }
}

// ---------------------------------------------------------------------------- opening

namespace {

VentanaAyuda* abrir(const QString& destino, const QString& primera, QWidget* padre)
{
    QPointer<VentanaAyuda>& v = visor();
    if (!v) {
        v = new VentanaAyuda(primera, padre);
        v->setAttribute(Qt::WA_DeleteOnClose);
    } else if (v->parentWidget() != padre) {
        // A modal window in use blocks every window but its own: the help goes with it.
        const QRect donde = v->geometry();
        v->setParent(padre, v->windowFlags());
        v->setGeometry(donde);
    }
    v->ir(destino);
    v->show();
    v->raise();
    v->activateWindow();
    // A section is scrolled to again once the page has its size on the screen.
    if (const QString ancla = destino.section(QLatin1Char('#'), 1); !ancla.isEmpty())
        QTimer::singleShot(0, v->texto, [t = v->texto, ancla] { t->scrollToAnchor(ancla); });
    return v;
}

}  // namespace

VentanaAyuda* mostrarAyudaEn(const QString& destino, QWidget* padre)
{
    return abrir(destino, archivoAyuda(), padre);
}

void mostrarAyuda(const QString& archivo, const QString& contexto, QWidget* padre)
{
    abrir(contexto.isEmpty() ? kPrimeraPagina : kPrimeraPagina + QLatin1Char('#') + contexto, archivo, padre);
}

void instalarTeclaAyuda()
{
    static QPointer<TeclaAyuda> filtro;
    if (filtro || !qApp)
        return;
    filtro = new TeclaAyuda(qApp);
    qApp->installEventFilter(filtro);
}

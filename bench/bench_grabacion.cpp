// Median time of saving a full declaration and of opening it again, in a temporary family
// folder. Prints figures; the goals are under 20 ms for each.
// Beside them, the floor: the same rows (the CAB row and the DET rows the module wrote, values
// and check codes as stored) written and read back with the engine's own interface, in a second
// database file of the same folder opened with the connection's settings (busy timeout, foreign
// keys off, WAL, the same synchronous level). The floor writes in one transaction with its
// statements prepared once per connection, and reads the CAB row and the casillas and values of
// DET. The ratios module/floor have goals of 3 for the save and 4 for the open.
#include "comun/base_prueba.h"
#include "form931/grabacion_comun.h"
#include "store/base.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSqlDriver>

#include <sqlite3.h>

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}

void informe(const char* que, const std::vector<double>& ms, double meta)
{
    std::printf("%-42s median %7.2f ms  min %7.2f  max %7.2f  (%zu runs, goal < %.0f ms)\n", que, mediana(ms),
                *std::min_element(ms.begin(), ms.end()), *std::max_element(ms.begin(), ms.end()), ms.size(), meta);
}

// Time the thread has run, which other programs on the machine don't lengthen (waits for the
// disk don't count either).
double cpuMs()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

void informeCpu(const char* que, const std::vector<double>& modulo, const std::vector<double>& piso)
{
    std::printf("%-42s module %7.2f ms  floor %6.2f ms  %6.1fx  (medians)\n", que, mediana(modulo), mediana(piso),
                mediana(modulo) / mediana(piso));
}

void informePiso(const char* que, const std::vector<double>& ms)
{
    std::printf("%-42s median %7.2f ms  min %7.2f  max %7.2f  (%zu runs)\n", que, mediana(ms),
                *std::min_element(ms.begin(), ms.end()), *std::max_element(ms.begin(), ms.end()), ms.size());
}

void informeRazon(const char* que, const std::vector<double>& modulo, const std::vector<double>& piso, double meta)
{
    std::printf("%-42s %7.1fx  (medians; goal <= %.0fx)\n", que, mediana(modulo) / mediana(piso), meta);
}

[[noreturn]] void falla(sqlite3* db, const char* donde)
{
    std::fprintf(stderr, "floor: %s: %s\n", donde, db ? sqlite3_errmsg(db) : "no connection");
    std::exit(1);
}

void correr(sqlite3* db, const char* sql)
{
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        falla(db, sql);
}

sqlite3_stmt* preparar(sqlite3* db, const std::string& sql)
{
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v3(db, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &st, nullptr) != SQLITE_OK)
        falla(db, sql.c_str());
    return st;
}

// Runs a statement that returns no rows and leaves it ready for the next values.
void paso(sqlite3* db, sqlite3_stmt* st)
{
    if (sqlite3_step(st) != SQLITE_DONE)
        falla(db, sqlite3_sql(st));
    sqlite3_reset(st);
}

// The engine's handle under the module's connection.
sqlite3* motorDelModulo()
{
    const QVariant manija = gdbBase().driver()->handle();
    if (!manija.isValid() || qstrcmp(manija.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(manija.constData());
}

std::string textoUnico(sqlite3* db, const std::string& sql)
{
    sqlite3_stmt* st = preparar(db, sql);
    std::string t;
    if (sqlite3_step(st) == SQLITE_ROW && sqlite3_column_text(st, 0))
        t = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    sqlite3_finalize(st);
    return t;
}

// Rows as the engine holds them, each value with its own type.
using Fila = std::vector<sqlite3_value*>;

std::vector<Fila> leerFilas(sqlite3* db, const std::string& sql, const std::vector<std::string>& clave)
{
    sqlite3_stmt* st = preparar(db, sql);
    for (size_t i = 0; i < clave.size(); ++i)
        sqlite3_bind_text(st, static_cast<int>(i + 1), clave[i].c_str(), -1, SQLITE_TRANSIENT);
    std::vector<Fila> filas;
    int r;
    while ((r = sqlite3_step(st)) == SQLITE_ROW) {
        Fila f;
        for (int c = 0; c < sqlite3_column_count(st); ++c)
            f.push_back(sqlite3_value_dup(sqlite3_column_value(st, c)));
        filas.push_back(std::move(f));
    }
    if (r != SQLITE_DONE)
        falla(db, sql.c_str());
    sqlite3_finalize(st);
    return filas;
}

// Every column of every row, as text, for comparing two tables byte for byte.
std::string volcar(sqlite3* db, const std::string& sql, const std::vector<std::string>& clave)
{
    std::string v;
    for (const Fila& f : leerFilas(db, sql, clave)) {
        for (sqlite3_value* x : f) {
            v += std::to_string(sqlite3_value_type(x)) + ':';
            if (const unsigned char* t = sqlite3_value_text(x))
                v.append(reinterpret_cast<const char*>(t), sqlite3_value_bytes(x));
            v += '|';
            sqlite3_value_free(x);
        }
        v += '\n';
    }
    return v;
}

const char* const kClave = " WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?";

// The floor: a second database in the family folder with the module's CAB and DET, its rows
// copied from what the module stored.
class Piso {
public:
    Piso(const QString& carpeta, sqlite3* modulo, const std::vector<std::string>& clave) : clave_(clave)
    {
        const std::string archivo = QDir(carpeta).filePath(QStringLiteral("PISO.DB")).toStdString();
        if (sqlite3_open_v2(archivo.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI,
                            nullptr) != SQLITE_OK)
            falla(db_, "open");
        // The module's settings: the busy wait, foreign keys off, WAL, and its synchronous level.
        sincronia_ = textoUnico(modulo, "PRAGMA main.synchronous");
        modoDiario_ = textoUnico(modulo, "PRAGMA main.journal_mode");
        sqlite3_busy_timeout(db_, kEsperaBloqueoMs);
        correr(db_, "PRAGMA foreign_keys = OFF");
        if (textoUnico(db_, "PRAGMA journal_mode = " + modoDiario_) != modoDiario_)
            falla(db_, "journal_mode");
        correr(db_, ("PRAGMA synchronous = " + sincronia_).c_str());
        // The same tables and keys, from the module's own database.
        sqlite3_stmt* esquema = preparar(
            modulo, "SELECT sql FROM sqlite_master WHERE tbl_name IN ('CAB','DET') AND sql IS NOT NULL"
                    " ORDER BY type DESC");
        while (sqlite3_step(esquema) == SQLITE_ROW)
            correr(db_, reinterpret_cast<const char*>(sqlite3_column_text(esquema, 0)));
        sqlite3_finalize(esquema);

        cab_ = leerFilas(modulo, std::string("SELECT * FROM CAB") + kClave, clave_);
        det_ = leerFilas(modulo, std::string("SELECT * FROM DET") + kClave + " ORDER BY rowid", clave_);
        begin_ = preparar(db_, "BEGIN IMMEDIATE");
        commit_ = preparar(db_, "COMMIT");
        borraDet_ = preparar(db_, std::string("DELETE FROM DET") + kClave);
        borraCab_ = preparar(db_, std::string("DELETE FROM CAB") + kClave);
        nuevaCab_ = preparar(db_, "INSERT INTO CAB VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
        nuevaDet_ = preparar(db_, "INSERT INTO DET VALUES (?,?,?,?,?,?,?,?,?)");
        leeCab_ = preparar(db_, std::string("SELECT * FROM CAB") + kClave);
        leeDet_ = preparar(db_, std::string("SELECT CASILLA, I_VALOR FROM DET") + kClave);
        for (sqlite3_stmt* st : {borraDet_, borraCab_, leeCab_, leeDet_})
            for (size_t i = 0; i < clave_.size(); ++i)
                sqlite3_bind_text(st, static_cast<int>(i + 1), clave_[i].c_str(), -1, SQLITE_STATIC);
        grabar();   // the rows to read, and a first untimed round, as the module has had
    }
    ~Piso()
    {
        for (sqlite3_stmt* st : {begin_, commit_, borraDet_, borraCab_, nuevaCab_, nuevaDet_, leeCab_, leeDet_})
            sqlite3_finalize(st);
        for (auto* filas : {&cab_, &det_})
            for (Fila& f : *filas)
                for (sqlite3_value* x : f)
                    sqlite3_value_free(x);
        sqlite3_close(db_);
    }

    size_t filasDet() const { return det_.size(); }
    std::string ajustes() const { return "journal_mode " + modoDiario_ + ", synchronous " + sincronia_; }

    // The rows replaced as a whole, in one transaction.
    void grabar()
    {
        paso(db_, begin_);
        paso(db_, borraDet_);
        paso(db_, borraCab_);
        insertar(nuevaCab_, cab_);
        insertar(nuevaDet_, det_);
        paso(db_, commit_);
    }

    // The CAB row and the casillas with their values, as text in hand; the rows read.
    size_t abrir()
    {
        std::vector<std::string> cabecera;
        std::vector<std::pair<std::string, std::string>> valores;
        valores.reserve(det_.size());
        size_t filas = 0;
        while (sqlite3_step(leeCab_) == SQLITE_ROW) {
            ++filas;
            for (int c = 0; c < sqlite3_column_count(leeCab_); ++c) {
                const unsigned char* t = sqlite3_column_text(leeCab_, c);
                cabecera.emplace_back(t ? reinterpret_cast<const char*>(t) : "");
            }
        }
        sqlite3_reset(leeCab_);
        while (sqlite3_step(leeDet_) == SQLITE_ROW) {
            const unsigned char* casilla = sqlite3_column_text(leeDet_, 0);
            const unsigned char* valor = sqlite3_column_text(leeDet_, 1);
            valores.emplace_back(casilla ? reinterpret_cast<const char*>(casilla) : "",
                                 valor ? reinterpret_cast<const char*>(valor) : "");
        }
        sqlite3_reset(leeDet_);
        return filas + valores.size();
    }

    // True when both databases hold the same rows, column by column.
    bool igualA(sqlite3* modulo) const
    {
        for (const char* tabla : {"CAB", "DET"}) {
            const std::string sql = std::string("SELECT * FROM ") + tabla + kClave + " ORDER BY rowid";
            if (volcar(modulo, sql, clave_) != volcar(db_, sql, clave_))
                return false;
        }
        return true;
    }

private:
    void insertar(sqlite3_stmt* st, const std::vector<Fila>& filas)
    {
        for (const Fila& f : filas) {
            for (size_t c = 0; c < f.size(); ++c)
                sqlite3_bind_value(st, static_cast<int>(c + 1), f[c]);
            paso(db_, st);
        }
    }

    std::vector<std::string> clave_;
    sqlite3* db_ = nullptr;
    std::string sincronia_, modoDiario_;
    std::vector<Fila> cab_, det_;
    sqlite3_stmt *begin_ = nullptr, *commit_ = nullptr, *borraDet_ = nullptr, *borraCab_ = nullptr,
                 *nuevaCab_ = nullptr, *nuevaDet_ = nullptr, *leeCab_ = nullptr, *leeDet_ = nullptr;
};

}  // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("F931_HOY"))
        qputenv("F931_HOY", "2026-11-22");
    QGuiApplication app(argc, argv);
    const int vueltas = argc > 1 ? std::max(1, atoi(argv[1])) : 30;

    FamiliaPrueba familia;
    using namespace prueba931;
    const QString periodo = QStringLiteral("202608");
    {
        EntornoSinPantalla entorno;
        Frm931 frm(&entorno);
        reproducirEntrada(frm, entorno, declaracionDeRegimen());
        frm.CmdGrabar_Click();
        if (frm.mbModificado) {
            std::fprintf(stderr, "the declaration was not saved: %s\n",
                         qPrintable(familia.respondedor().textos().join(QLatin1Char('\n'))));
            return 1;
        }
    }
    // One untimed open and save: a stored declaration saved again keeps these rows from then on
    // (the first save, from typed values, writes 150 and 801 otherwise).
    {
        EntornoSinPantalla entorno;
        Frm931 frm(&entorno);
        abrirGuardada(frm, periodo);
        frm.mbModificado = true;
        frm.CmdGrabar_Click();
        familia.respondedor().mostrados.clear();
    }
    std::printf("declaration of %lld rows in DET\n",
                static_cast<long long>(mapaDet(periodo).size()));

    sqlite3* motor = motorDelModulo();
    if (!motor) {
        std::fprintf(stderr, "the connection is not the engine's\n");
        return 1;
    }
    const std::vector<std::string> clave = {DatosDemo::kRucAndina.toStdString(), periodo.toStdString(),
                                            G().gsFormulario.toStdString()};
    Piso piso(familia.carpeta(), motor, clave);
    if (piso.filasDet() == 0) {
        std::fprintf(stderr, "floor: no rows to copy\n");
        return 1;
    }

    // Module and floor take turns in every round, so both see the same load of the machine.
    std::vector<double> abrir, grabar, abrirPiso, grabarPiso;
    std::vector<double> cpuAbrir, cpuGrabar, cpuAbrirPiso, cpuGrabarPiso;
    bool completo = true;
    for (int i = 0; i < vueltas; ++i) {
        EntornoSinPantalla entorno;
        Frm931 frm(&entorno);
        QElapsedTimer t;
        double c = cpuMs();
        t.start();
        abrirGuardada(frm, periodo);
        abrir.push_back(t.nsecsElapsed() / 1e6);
        cpuAbrir.push_back(cpuMs() - c);

        frm.mbModificado = true;
        c = cpuMs();
        t.restart();
        frm.CmdGrabar_Click();
        grabar.push_back(t.nsecsElapsed() / 1e6);
        cpuGrabar.push_back(cpuMs() - c);
        if (frm.mbModificado) {
            std::fprintf(stderr, "a save was refused\n");
            return 1;
        }
        familia.respondedor().mostrados.clear();

        c = cpuMs();
        t.restart();
        completo = piso.abrir() == piso.filasDet() + 1 && completo;
        abrirPiso.push_back(t.nsecsElapsed() / 1e6);
        cpuAbrirPiso.push_back(cpuMs() - c);
        c = cpuMs();
        t.restart();
        piso.grabar();
        grabarPiso.push_back(t.nsecsElapsed() / 1e6);
        cpuGrabarPiso.push_back(cpuMs() - c);
    }
    informe("open a stored declaration (Form_Load)", abrir, 20);
    informe("save a full declaration (CmdGrabar_Click)", grabar, 20);
    informePiso("open, floor (plain SQLite)", abrirPiso);
    informePiso("save, floor (plain SQLite)", grabarPiso);
    informeRazon("open, module / floor", abrir, abrirPiso, 4);
    informeRazon("save, module / floor", grabar, grabarPiso, 3);
    informeCpu("open, CPU time of the thread", cpuAbrir, cpuAbrirPiso);
    informeCpu("save, CPU time of the thread", cpuGrabar, cpuGrabarPiso);
    std::printf("floor: %zu DET rows and the CAB row, %s, rows %s the module's%s\n", piso.filasDet(),
                piso.ajustes().c_str(), piso.igualA(motor) ? "identical to" : "DIFFERENT from",
                completo ? "" : ", SOME READ INCOMPLETE");
    return 0;
}

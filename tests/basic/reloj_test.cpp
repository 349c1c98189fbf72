// The one "today": fixed by F931_HOY or by fijarHoy, the time of day stays real.
#include "basic/reloj.h"

#include <gtest/gtest.h>

namespace {

class Reloj : public ::testing::Test {
protected:
    void SetUp() override { guardado_ = qgetenv("F931_HOY"); }
    void TearDown() override
    {
        fijarHoy(QDate());
        qputenv("F931_HOY", guardado_);
    }
    QByteArray guardado_;
};

TEST_F(Reloj, ElEntornoFijaLaFecha)
{
    struct { const char* entorno; QDate esperada; } casos[] = {
        {"2026-11-22", QDate(2026, 11, 22)},
        {"2013-03-22", QDate(2013, 3, 22)},
        {" 2000-02-29 ", QDate(2000, 2, 29)},
        {"2013-02-30", QDate::currentDate()},   // no such day: the real clock
        {"22/03/2013", QDate::currentDate()},
        {"", QDate::currentDate()},
    };
    for (const auto& c : casos) {
        qputenv("F931_HOY", c.entorno);
        EXPECT_EQ(Hoy(), c.esperada) << c.entorno;
        EXPECT_EQ(Ahora().date(), c.esperada) << c.entorno;
    }
}

TEST_F(Reloj, FijarHoyPrevaleceYSeDeshace)
{
    qputenv("F931_HOY", "2026-11-22");
    fijarHoy(QDate(2013, 3, 22));
    EXPECT_EQ(Hoy(), QDate(2013, 3, 22));
    const QTime antes = QTime::currentTime();
    const QDateTime ahora = Ahora();
    EXPECT_EQ(ahora.date(), QDate(2013, 3, 22));
    EXPECT_LE(std::abs(antes.secsTo(ahora.time())), 2);   // the time of day is the real one
    fijarHoy(QDate());
    EXPECT_EQ(Hoy(), QDate(2026, 11, 22));
}

}

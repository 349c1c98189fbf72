// The master table of the declaration: one row per box, in the order in which the form lists
// them, then the items without a box. Each row holds the label of the paper form and of the
// printed declaration, the kind, how the figure shows, what the value is, where the box
// stands on the window, its length, how it is stored, exported and printed, and its marks.
#include "form931/casillas.h"

#include <QHash>

#include <algorithm>

namespace {

using T = TipoCasilla;
using P = Presentacion;
using C = ClaseDato;
using G = Grabacion;
using E = Exportacion;
using B = BloqueInforme;

// {numero, etiqueta, etiqueta del informe,
//  tipo, presentación, clase, control, marco, fila, columna, largo, grabación, exportación, bloque, marcas}
const DefCasilla kCasillas[] = {
    // Activo, first stop of the scroller.
    {500, "Caja y bancos", "Caja y Bancos",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 0, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {501, "Inv valor razonable y disp para la vta", "Inv valor razonable y disp para la vta",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 1, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {502, "Ctas por cobrar comerciales - terc", "Ctas por cobrar comerciales - terc",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 2, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {503, "Ctas por cobrar comerciales - Relac", "Ctas por cobrar comerciales - Relac",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 3, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {504, "Ctas p cob per.acc, soc, dir y ger", "Ctas p cob per.acc, soc, dir y ger",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 4, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {505, "Ctas por cobrar diversas - Terceros", "Ctas por cobrar diversas - Terceros",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 5, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {506, "Ctas por cobrar diversas - Relacionadas", "Ctas por cobrar diversas - Relacionadas",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 6, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {507, "Serv y otros contratados por anticipado", "Serv y otros contratados por anticipado",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 7, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {508, "Estimación ctas de cobranza dudosa", "Estimación ctas de cobranza dudosa",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame26", 8, 0, 17, G::Cifra, E::Digitos, B::Activo, 0},
    {509, "Mercaderías", "Mercaderias",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 9, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {510, "Productos terminados", "Productos terminados",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 10, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {511, "Subprod., desechos y desperdicios", "Subprod., desechos y desperdicios",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 11, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {512, "Productos en proceso", "Productos en proceso",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 12, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {513, "Materias primas", "Materias primas",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 13, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {514, "Materiales aux, suministros y repuestos", "Materiales aux, suministros y repuestos",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 14, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {515, "Envases y embalajes", "Envases y embalajes",
     T::Entrada, P::Simple, C::Importe, "", "Frame26", 15, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    // Activo, second stop.
    {516, "Existencias por recibir", "Existencias por recibir",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 0, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {517, "Desvalorización de Existencias", "Desvalorización de Existencias",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame34", 1, 0, 17, G::Cifra, E::Digitos, B::Activo, 0},
    {518, "Activos no ctes mantenidos para la vta", "Activos no ctes mantenidos para la vta",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 2, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {519, "Otros activos corrientes", "Otros activos corrientes",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 3, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {520, "Inversiones mobiliarias", "Inversiones mobiliarias",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 4, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {521, "Inversiones inmobiliarias  (1)", "Inversiones inmobiliarias (1)",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 5, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {522, "Activ. Adq. en arrendamiento finan. (2)", "Activ. Adq. en arrendamiento finan. (2)",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 6, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {523, "Inmuebles, maquinaria y equipo", "Inmuebles, maquinaria y equipo",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 7, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {524, "Depreciación (1) y (2) e IME acumulados", "Depreciación (1) y (2) e IME acumulados",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame34", 8, 0, 17, G::Cifra, E::Digitos, B::Activo, 0},
    {525, "Intangibles", "Intangibles",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 9, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {526, "Activos biológicos", "Activos biológicos",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 10, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {527, "Deprec act biol, amort y agotam acum", "Deprec act biol, amort y agotam acum",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame34", 11, 0, 17, G::Cifra, E::Digitos, B::Activo, 0},
    {528, "Desvalorización de activo inmovilizado", "Desvalorización de activo inmovilizado",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame34", 12, 0, 17, G::Cifra, E::Digitos, B::Activo, 0},
    {529, "Activo Diferido", "Activo Diferido",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 13, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {530, "Otros Activos no corrientes", "Otros Activos no corrientes",
     T::Entrada, P::Simple, C::Importe, "", "Frame34", 14, 0, 15, G::Cifra, E::Digitos, B::Activo, 0},
    {531, "TOTAL ACTIVO NETO", "TOTAL ACTIVO NETO",
     T::Calculada, P::Simple, C::Importe, "", "Frame34", 15, 0, 18, G::Cifra, E::No, B::Activo, 0},
    // Pasivo.
    {532, "Sobregiros bancarios", "Sobregiros bancarios",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 0, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {533, "Trib aport sist pens y salud p pagar", "Trib y aport sist pens y salud p pagar",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 1, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {534, "Remuneraciones y part. por pagar", "Remuneraciones y part. por pagar",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 2, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {535, "Ctas por pagar comerciales - Terc", "Ctas por pagar comerciales - Terceros ",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 3, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {536, "Ctas por pagar comerciales - Relac", "Ctas por pagar comerciales - Relac",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 4, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {537, "Ctas p pagar accion, directores ger", "Ctas p pagar accion, directores y ger",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 5, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {538, "Cuentas por pagar diversas - Terc", "Cuentas por pagar diversas - Terceros",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 6, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {539, "Ctas por pagar diversas - Relac", "Ctas por pagar diversas - Relacionadas",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 7, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {540, "Obligaciones Financieras", "Obligaciones Financieras",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 8, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {541, "Provisiones", "Provisiones",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 9, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {542, "Pasivo diferido", "Pasivo diferido",
     T::Entrada, P::Simple, C::Importe, "", "Frame35", 10, 0, 15, G::Cifra, E::Digitos, B::Pasivo, 0},
    {543, "TOTAL PASIVO", "TOTAL PASIVO",
     T::Calculada, P::Totales, C::Importe, "", "Frame35", 11, 0, 18, G::Cifra, E::No, B::Pasivo, 0},
    // Patrimonio.
    {544, "Capital", "Capital",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 0, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {545, "Acciones de inversión", "Acciones de inversión",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 1, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {546, "Capital adicional", "Capital adicional",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 2, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {547, "Resultados no realizados", "Resultados no realizados",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 3, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {548, "Excedente de revaluación", "Excedente de revaluación",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 4, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {549, "Reservas", "Reservas",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 5, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {550, "Resultados acumulados positivo", "Resultados acumulados positivo",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 6, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {551, "Resultados acumulados negativos", "Resultados acumulados negativo",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame36", 7, 0, 17, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {552, "Utilidad del Ejercicio", "Utilidad de ejercicio",
     T::Entrada, P::Simple, C::Importe, "", "Frame36", 8, 0, 15, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {553, "Pérdida del Ejercicio", "Pérdida del ejercicio",
     T::Entrada, P::Parentesis, C::Importe, "", "Frame36", 9, 0, 17, G::Cifra, E::Digitos, B::Patrimonio, 0},
    {554, "TOTAL PATRIMONIO", "TOTAL PATRIMONIO",
     T::Calculada, P::Totales, C::Importe, "", "Frame36", 10, 0, 18, G::Cifra, E::No, B::Patrimonio, 0},
    {555, "TOTAL PASIVO Y PATRIM.", "TOTAL PASIVO Y PATRIMONIO",
     T::Calculada, P::Totales, C::Importe, "", "Frame36", 11, 0, 18, G::Cifra, E::No, B::Patrimonio, 0},
    // Carriers of the annex of 477, below the visible part of the determination page.
    {432, "Ingresos afectos", "Ingresos afectos",
     T::Asistente, P::Simple, C::Importe, "", "portadores", 0, 0, 15, G::Cifra, E::Digitos, B::Anexo477, 0},
    {433, "Ingresos exonerados", "Ingresos exonerados",
     T::Asistente, P::Simple, C::Importe, "", "portadores", 1, 0, 15, G::Cifra, E::Digitos, B::Anexo477, 0},
    // MYPE projection.
    {250, "Imp. a la Renta proyectado", "Imp. a la Renta proyectado",
     T::Calculada, P::Simple, C::Importe, "", "frmMype", 0, 0, 18, G::Cifra, E::No, B::Mype, kSoloMype},
    {251, "Pagos a cuenta realizados", "Pagos a cuenta realizados",
     T::Entrada, P::Parentesis, C::Importe, "", "frmMype", 1, 0, 17, G::Cifra, E::Digitos, B::Mype, kSoloMype},
    {252, "Saldo a favor del año anterior", "Saldo a favor del año anterior",
     T::Entrada, P::Parentesis, C::Importe, "", "frmMype", 2, 0, 17, G::Cifra, E::Digitos, B::Mype, kSoloMype},
    {253, "Monto pendiente de pago", "Monto pendiente de pago",
     T::Calculada, P::Totales, C::Importe, "", "frmMype", 3, 0, 18, G::Cifra, E::No, B::Mype, kSoloMype},
    // Estado de ganancias y pérdidas.
    {461, "Ventas netas o Ing. por servicios", "Ventas Netas o ingresos por servicios",
     T::Entrada, P::Simple, C::Importe, "", "frame1(7)", 0, 0, 15, G::Cifra, E::Digitos, B::Resultados, 0},
    {462, "Desc., rebajas y bonif. concedidas", "(-) Descuentos, rebajas y bonificaciones concedidas",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 1, 0, 17, G::Cifra, E::Digitos, B::Resultados, kConSigno},
    {463, "Ventas netas", "Ventas Netas",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 2, 0, 18, G::Cifra, E::No, B::Resultados, 0},
    {464, "Costo de ventas", "(-) Costo de Ventas",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 3, 0, 17, G::Cifra, E::Digitos, B::Resultados, kConSigno},
    {466, "Resultado bruto, Utilidad", "Resultado Bruto                      Utilidad",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 4, 0, 18, G::Cifra, E::No, B::Resultados, 0},
    {467, "Resultado bruto, Pérdida", "                                     Pérdida",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(7)", 5, 0, 18, G::Cifra, E::No, B::Resultados, 0},
    {468, "Gastos de ventas", "(-) Gastos de venta",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 6, 0, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {469, "Gastos de administración", "(-) Gastos de administración",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 7, 0, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {470, "Resultado de operación, Utilidad", "Resultado de operación               Utilidad",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 8, 0, 18, G::Cifra, E::No, B::Resultados, 0},
    {471, "Resultado de operación, Pérdida", "                                     Pérdida",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(7)", 9, 0, 18, G::Cifra, E::No, B::Resultados, 0},
    {472, "Gastos financieros", "(-) Gastos financieros",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 10, 0, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {473, "Ingresos financieros gravados", "(+) Ingresos financieros gravados",
     T::Asistente, P::Simple, C::Importe, "", "frame1(7)", 11, 0, 15, G::Cifra, E::Partes, B::Resultados, 0},
    {475, "Otros ingresos gravados", "(+) Otros ingresos gravados",
     T::Entrada, P::Simple, C::Importe, "", "frame1(7)", 12, 0, 15, G::Cifra, E::Digitos, B::Resultados, 0},
    {476, "Otros ingresos no gravados", "(+) Otros ingresos no gravados",
     T::Entrada, P::Simple, C::Importe, "", "frame1(7)", 13, 0, 15, G::Cifra, E::Digitos, B::Resultados, 0},
    {477, "Enajen. de val. y bienes del Act. F.", "(+) Enajenación de valores y bienes del activo fijo",
     T::Asistente, P::Simple, C::Importe, "", "frame1(7)", 0, 1, 15, G::Cifra, E::Partes, B::Resultados, 0},
    {478, "Costo enajen, de val.y bienes A.F.", "(-) Costo enajenación de valores y bienes activo fijo",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 1, 1, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {480, "Gastos diversos", "(-) Gastos diversos",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 2, 1, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {481, "REI del Ejercicio Positivo", "REI del ejercicio                    Positivo",
     T::Entrada, P::Simple, C::Importe, "", "frame1(7)", 3, 1, 15, G::Cifra, E::Digitos, B::Resultados, 0},
    {483, "REI del Ejercicio Negativo", "                                     Negativo",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 4, 1, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {484, "Resultado antes de part., Utilidad", "Resultado antes de participaciones   Utilidad",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 5, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    {485, "Resultado antes de part., Pérdida", "                                     Pérdida",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(7)", 6, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    {486, "Distribución legal de la renta", "(-) Distribución legal de la renta",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 7, 1, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {487, "Resultado antes del imp., Utilidad", "Resultado antes del impuesto         Utilidad",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 8, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    {489, "Resultado antes del imp., Pérdida", "                                     Pérdida",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(7)", 9, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    {490, "Impuesto a la renta", "(-) Impuesto a la Renta",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(7)", 10, 1, 17, G::Cifra, E::Digitos, B::Resultados, 0},
    {492, "Resultado del ejercicio, Utilidad", "Resultado del ejercicio              Utilidad",
     T::Calculada, P::Simple, C::Importe, "", "frame1(7)", 11, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    {493, "Resultado del ejercicio, Pérdida", "                                     Pérdida",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(7)", 12, 1, 18, G::Cifra, E::No, B::Resultados, 0},
    // Determinación.
    {100, "Utilidad Antes del Impuesto", "Utilidad antes del impuesto",
     T::Calculada, P::Simple, C::Importe, "", "frame1(2)", 0, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {101, "Pérdida del ejercicio", "Pérdida del ejercicio",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(2)", 1, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {103, "Adiciones para determinar la renta imponible", "(+) Adiciones para determinar la renta imponible",
     T::Entrada, P::Simple, C::Importe, "", "frame1(2)", 2, 0, 15, G::Cifra, E::Digitos, B::Renta, 0},
    {105, "Deducciones para determinar la renta imponible", "(-) Deducciones para determinar la renta imponible",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(2)", 3, 0, 17, G::Cifra, E::Digitos, B::Renta, 0},
    {106, "Renta neta del ejercicio", "Renta neta del ejercicio",
     T::Calculada, P::Simple, C::Importe, "", "frame1(2)", 4, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {107, "Pérdida del ejercicio", "Pérdida del ejercicio",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(2)", 5, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {108, "Pérdida Tributaria compensable de ejercicios anteriores", "(-) Pérdida tributaria compensable de ejercicios anteriores",
     T::Entrada, P::Parentesis, C::Importe, "", "frame1(2)", 6, 0, 17, G::Cifra, E::Digitos, B::Renta, 0},
    {150, "Inversión en Amazonía", "Inversión en amazonía",
     T::Entrada, P::Simple, C::Importe, "", "frame1(2)", 7, 0, 15, G::Cifra, E::Digitos, B::Renta, 0},
    {110, "Renta neta imponible", "Renta Neta Imponible",
     T::Calculada, P::Simple, C::Importe, "", "frame1(2)", 8, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {111, "Pérdida trib. del ejercicio", "Pérdida tributaria del ejercicio",
     T::Calculada, P::Parentesis, C::Importe, "", "frame1(2)", 9, 0, 18, G::Cifra, E::No, B::Renta, 0},
    {113, "IMPUESTO A LA RENTA", "Impuesto a la Renta",
     T::Calculada, P::Simple, C::Importe, "", "frame1(2)", 10, 0, 18, G::Cifra, E::SiConvenio, B::Renta, 0},
    // Contador and representante legal.
    {208, "RUC del contador", nullptr,
     T::Texto, P::Texto, C::Codigo, "", "Frame6", 4, 0, 11, G::Cifra, E::Digitos, B::No, 0},
    {209, "Código de zona de la colegiatura o registro", nullptr,
     T::Texto, P::Texto, C::Codigo, "CmbZona", "Frame6", 3, 0, 2, G::Texto, E::Tal, B::No, 0},
    {211, "C.P.C. Nro.", nullptr,
     T::Texto, P::Texto, C::Texto, "", "Frame6", 5, 0, 12, G::Texto, E::Tal, B::No, 0},
    {212, "C.M.A. Nro", nullptr,
     T::Texto, P::Texto, C::Texto, "", "Frame6", 6, 0, 12, G::Texto, E::Tal, B::No, 0},
    {225, "Tip. Doc. del representante legal", nullptr,
     T::Texto, P::Texto, C::Codigo, "cboTipDocRepLegal", "Frame7", 3, 0, 12, G::Texto, E::Tal, B::No, 0},
    {226, "Doc. Identidad del representante legal", nullptr,
     T::Texto, P::Texto, C::Texto, "", "Frame7", 4, 0, 8, G::Texto, E::Tal, B::No, 0},
    // The new coefficient, and the carriers of the annex of 473.
    {610, "NUEVO COEFICIENTE O PORCENTAJE", nullptr,
     T::Calculada, P::Coeficiente, C::Importe, "", "frame1(2)", 11, 0, 18, G::Coeficiente, E::No, B::No, kNombrada},
    {650, "Ingresos financieros gravados", "Ingresos financieros gravados",
     T::Asistente, P::Simple, C::Importe, "", "portadores", 2, 0, 15, G::Cifra, E::Digitos, B::Anexo473, kDesde2013},
    {651, "Ingresos financieros por diferencia de tipo de cambio", "Ingresos financieros por diferencia de tipo de cambio",
     T::Asistente, P::Simple, C::Importe, "", "portadores", 3, 0, 15, G::Cifra, E::Digitos, B::Anexo473, kDesde2013},
    // Items without a box, answered or typed in the identification and the complementary data.
    {28, "Teléfono", nullptr, T::SinCaja, P::Texto, C::Codigo, "TxtTelefono", "", 0, 0, 9, G::Texto, E::Tal, B::No, kNombrada},
    {56, "Régimen de renta", nullptr, T::SinCaja, P::Texto, C::Respuesta, "optRenta", "", 0, 0, 0, G::Cifra, E::Tal, B::No, 0},
    {813, "Tipo de persona", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptPersona", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {200, "Fecha de Presentación del formulario 4888", nullptr, T::SinCaja, P::Texto, C::Fecha, "MkePeriodo", "", 0, 0, 0, G::Texto, E::Tal, B::No, kNombrada},
    {809, "Contribuyente Ubicado en la Amazonía", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptUbicAmazonia", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {810, "Acogimiento a la Ley de la Amazonía", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptLeyAmazonia", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {860, "Domicilio Fiscal ubicado en la Amazonía", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptDomFiscal", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {811, "Zona a la que corresponde la ubicación de su domicilio", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptZona", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {812, "Ubicación Geográfica de su Domicilio Fiscal (Amazonía)", nullptr, T::SinCaja, P::Texto, C::Codigo, "TxtUbigeo", "", 0, 0, 0, G::Texto, E::Tal, B::No, kNombrada},
    {601, "Se dedica a la actividad industrial", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptActividad", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {602, "Domicilio Fiscal ubicado en la zona de frontera", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptFrontera", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {603, "Ubicación Geográfica de su Domicilio Fiscal (frontera)", nullptr, T::SinCaja, P::Texto, C::Codigo, "TxtUbigeo2", "", 0, 0, 0, G::Texto, E::Tal, B::No, kNombrada},
    {804, "Convenio de estabilidad", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptConvEstab", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {224, "Número de Orden del Formulario 2305", nullptr, T::SinCaja, P::Texto, C::Texto, "TxtNumOrdenF2305", "", 0, 0, 8, G::Texto, E::Tal, B::No, 0},
    {605, "¿Ha Iniciado sus actividades en el ejercicio?", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptInicio", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {606, "Ejercicio precedente al anterior", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptPrecedente", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {607, "Ejercicio anterior", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptAnterior", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {608, "Fecha de balance", nullptr, T::SinCaja, P::Texto, C::Respuesta, "CboBalance", "", 0, 0, 0, G::Cifra, E::Indice, B::No, kNombrada},
    {611, "Suspensión de los pagos a cuenta", nullptr, T::SinCaja, P::Texto, C::Respuesta, "OptSuspPC", "", 0, 0, 0, G::Texto, E::Tal, B::No, 0},
    {612, "Número de resolución", nullptr, T::SinCaja, P::Texto, C::Texto, "txtNumRes", "", 0, 0, 0, G::Texto, E::Tal, B::No, 0},
    {613, "Fecha de notificación", nullptr, T::SinCaja, P::Texto, C::Fecha, "mkefecnot", "", 0, 0, 0, G::Texto, E::Tal, B::No, 0},
    {815, "Apellidos del contador", nullptr, T::SinCaja, P::Texto, C::Texto, "TxtNombreA", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {816, "Nombres del contador", nullptr, T::SinCaja, P::Texto, C::Texto, "TxtNombreN", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {817, "Apellidos del representante legal", nullptr, T::SinCaja, P::Texto, C::Texto, "txtApellidoRL", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    {818, "Nombres del representante legal", nullptr, T::SinCaja, P::Texto, C::Texto, "txtNombreRL", "", 0, 0, 0, G::Cifra, E::Tal, B::No, kNombrada},
    // Items the form derives and stores itself: taken back from the store, never typed.
    {2, "RUC", nullptr, T::Derivada, P::Texto, C::Codigo, "CmbRuc", "", 0, 0, 0, G::Texto, E::No, B::No, 0},
    {7, "Periodo", nullptr, T::Derivada, P::Texto, C::Codigo, "TxtEjercicio", "", 0, 0, 0, G::Texto, E::No, B::No, 0},
    {801, "Razón social", nullptr, T::Derivada, P::Texto, C::Texto, "TxtRazon", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {609, "Sistema de pago", nullptr, T::Derivada, P::Texto, C::Codigo, "LblSistema", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {662, "Total de pérdidas de ejercicios anteriores", nullptr, T::Derivada, P::Texto, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {721, "Versión", nullptr, T::Derivada, P::Texto, C::Codigo, "", "", 0, 0, 0, G::Texto, E::No, B::No, 0},
    // Numbers of the family's annual form with no place here: how they are stored and loaded.
    {15, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Texto, E::No, B::No, 0},
    {220, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Texto, E::No, B::No, 0},
    {117, "", nullptr, T::Ajena, P::Parentesis, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {128, "", nullptr, T::Ajena, P::Parentesis, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {428, "", nullptr, T::Ajena, P::Parentesis, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {453, "", nullptr, T::Ajena, P::Parentesis, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {455, "", nullptr, T::Ajena, P::Parentesis, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {430, "", nullptr, T::Ajena, P::Totales, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {442, "", nullptr, T::Ajena, P::Totales, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {458, "", nullptr, T::Ajena, P::Totales, C::Importe, "", "", 0, 0, 0, G::Cifra, E::No, B::No, 0},
    {5, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {223, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {604, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {802, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {803, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
    {807, "", nullptr, T::Ajena, P::Texto, C::Texto, "", "", 0, 0, 0, G::Cifra, E::No, B::No, kNombrada},
};

// The boxes are the rows before the first item without one.
bool esCaja(const DefCasilla& d)
{
    return d.tipo != T::SinCaja && d.tipo != T::Derivada && d.tipo != T::Ajena;
}

const QHash<int, const DefCasilla*>& indice()
{
    static const QHash<int, const DefCasilla*> h = [] {
        QHash<int, const DefCasilla*> m;
        for (const DefCasilla& d : kCasillas)
            m.insert(d.numero, &d);
        return m;
    }();
    return h;
}

}  // namespace

const QVector<int>& ordenCasillas()
{
    static const QVector<int> orden = [] {
        QVector<int> v;
        for (const DefCasilla& d : kCasillas)
            if (esCaja(d))
                v << d.numero;
        return v;
    }();
    return orden;
}

const QVector<const DefCasilla*>& filasCasillas()
{
    static const QVector<const DefCasilla*> filas = [] {
        QVector<const DefCasilla*> v;
        for (const DefCasilla& d : kCasillas)
            v << &d;
        return v;
    }();
    return filas;
}

const DefCasilla* defCasilla(int numero)
{
    return indice().value(numero, nullptr);
}

bool existeCasilla(int numero)
{
    const DefCasilla* d = defCasilla(numero);
    return d && esCaja(*d);
}

bool tieneMarca(int numero, unsigned marca)
{
    const DefCasilla* d = defCasilla(numero);
    return d && (d->marcas & marca);
}

QVector<int> casillasConMarca(unsigned marca)
{
    QVector<int> v;
    for (int n : ordenCasillas())
        if (tieneMarca(n, marca))
            v << n;
    return v;
}

QVector<const DefCasilla*> casillasDelMarco(const char* marco, int columna)
{
    QVector<const DefCasilla*> v;
    for (const DefCasilla& d : kCasillas)
        if (esCaja(d) && qstrcmp(d.marco, marco) == 0 && (columna < 0 || d.columna == columna))
            v << &d;
    std::stable_sort(v.begin(), v.end(), [](const DefCasilla* a, const DefCasilla* b) {
        return a->columna != b->columna ? a->columna < b->columna : a->fila < b->fila;
    });
    return v;
}

QVector<const DefCasilla*> casillasDelBloque(BloqueInforme bloque, int anio)
{
    QVector<const DefCasilla*> v;
    for (const DefCasilla& d : kCasillas)
        if (d.bloque == bloque && !(anio > 0 && anio < 2013 && (d.marcas & kDesde2013)))
            v << &d;
    return v;
}

QVector<int> partesDelAnexo(int numero)
{
    const BloqueInforme anexo = numero == 473 ? B::Anexo473 : numero == 477 ? B::Anexo477 : B::No;
    QVector<int> v;
    if (anexo != B::No)
        for (const DefCasilla* d : casillasDelBloque(anexo))
            v << d->numero;
    return v;
}

bool esAsistida(int numero)
{
    const DefCasilla* d = defCasilla(numero);
    return d && d->tipo == T::Asistente && qstrcmp(d->marco, "portadores") != 0;
}

bool esParentesis(int numero)
{
    const DefCasilla* d = defCasilla(numero);
    return d && d->presentacion == Presentacion::Parentesis;
}

bool esCalculada(int numero)
{
    const DefCasilla* d = defCasilla(numero);
    return d && d->tipo == TipoCasilla::Calculada;
}

QString codigoCasilla(int numero)
{
    return QStringLiteral("%1").arg(numero, 3, 10, QLatin1Char('0'));
}

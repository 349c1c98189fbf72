#!/usr/bin/env python3
"""Builds the catalogue seed of the module from the reference CSV files.

Writes two UTF-8 CSV files under data/ (committed; the program embeds them and never reads the
reference folder at run time):

  data/param.csv   rows of the catalogue table PARAM: Numero, Argumento, Funcion
  data/error.csv   rows of the message table ERROR: CodError, DescError

Lines that begin with "#" are comments for the reader; the loader skips them.

Usage: scripts/generar_semilla.py [--origen FOLDER] [--destino FOLDER]
Only the standard library is used.
"""
import argparse
import csv
import io
import os
import sys

RAIZ = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ORIGEN_POR_DEFECTO = os.path.join(os.path.dirname(RAIZ), "shared", "data")


def leer(origen, nombre):
    with open(os.path.join(origen, nombre), encoding="utf-8", newline="") as f:
        return list(csv.DictReader(f))


def campo(texto, ancho):
    """Text cut or padded with blanks to a fixed width."""
    return texto[:ancho].ljust(ancho)


def colocar(partes, largo):
    """Builds a fixed-position payload: partes maps a 1-based position to its text."""
    fila = [" "] * largo
    for pos, texto in partes.items():
        for i, c in enumerate(texto):
            fila[pos - 1 + i] = c
    return "".join(fila).rstrip()


# Document types (catalogue 044). Positions of Funcion:
#   1-30 long name, 32-42 short name, 46-47 maximum length, 56-57 sort order,
#   59-127 one flag a use ("1" allowed), 82 the legal representative of this form,
#   128 data type (0 digits only, 1 alphanumeric), 130 length type (0 maximum, 1 exact).
POS_REP_LEGAL = 82
TIPOS_REP_LEGAL = {"01", "06"}
ORDEN_TIPOS = ["06", "01", "04", "07", "11", "00"]


def funcion_tipo_documento(fila):
    codigo = fila["code"]
    flags = ["0"] * (127 - 59 + 1)
    if codigo in TIPOS_REP_LEGAL:
        flags[POS_REP_LEGAL - 59] = "1"
    orden = ORDEN_TIPOS.index(codigo) + 1 if codigo in ORDEN_TIPOS else 99
    return colocar({
        1: campo(fila["name"].upper(), 30),
        32: campo(fila["abbrev"], 11),
        46: "%02d" % int(fila["max_len"]),
        56: "%02d" % orden,
        59: "".join(flags),
        128: "0" if fila["numeric"] == "yes" else "1",
        130: "1" if fila["exact_len"] == "yes" else "0",
    }, 130)


# Casillas of form 0931 (catalogue 140): the boxes of the form, then the items that have no box.
CASILLAS_CAJA = (
    list(range(500, 556)) + [432, 433] + list(range(250, 254)) + list(range(461, 465))
    + list(range(466, 474)) + list(range(475, 479)) + [480, 481] + list(range(483, 488))
    + [489, 490, 492, 493, 100, 101, 103] + list(range(105, 109))
    + [150, 110, 111, 113, 208, 209, 211, 212, 225, 226, 610, 650, 651]
)
CASILLAS_SIN_CAJA = [
    "002", "007", "801", "028", "813", "200", "809", "810", "860", "811", "812", "601", "602",
    "603", "804", "224", "056", "605", "606", "607", "608", "609", "611", "612", "613", "662",
    "721", "815", "816", "817", "818",
]
# Attribute at positions 10-11 of Funcion: "01" a box of the form, "02" an item without a box.
ATRIBUTO_CAJA, ATRIBUTO_SIN_CAJA = "01", "02"

BANCOS = 16   # "01".."16" plus the "00" filler row


def filas_param(origen):
    filas = []

    def agregar(numero, argumento, funcion):
        filas.append((numero, argumento, funcion))

    for d in leer(origen, "ubigeo_distritos.csv"):
        agregar("001", d["code"], d["name"])
    agregar("004", "00", "")
    for n in range(1, BANCOS + 1):
        agregar("004", "%02d" % n, "BANCO %02d" % n)
    for d in leer(origen, "ubigeo_departamentos.csv"):
        agregar("030", d["code"], d["name"])
    for p in leer(origen, "ubigeo_provincias.csv"):
        agregar("031", p["code"], p["name"])
    for t in leer(origen, "tipos_documento.csv"):
        agregar("044", str(int(t["code"])), funcion_tipo_documento(t))
    for c in CASILLAS_CAJA:
        agregar("140", "0931%03d" % c, colocar({1: "%03d" % c, 10: ATRIBUTO_CAJA}, 11))
    for c in CASILLAS_SIN_CAJA:
        agregar("140", "0931" + c, colocar({1: c, 10: ATRIBUTO_SIN_CAJA}, 11))
    for u in leer(origen, "uit.csv"):
        agregar("404", u["year"], u["value"])
    for p in leer(origen, "paises.csv"):
        agregar("976", p["code"], p["name"])
    return filas


ERRORES = [
    ("0039", "Debe seleccionar el Ubigeo."),
    ("0151", "La información de la declaración fue grabada satisfactoriamente."),
    ("0152", "La información de la declaración fue grabada con inconsistencias. "
             "En estas condiciones no podra ser enviada a TAVEN."),
]


def escribir(destino, nombre, comentarios, cabecera, filas):
    salida = io.StringIO()
    for c in comentarios:
        salida.write("# " + c + "\n")
    w = csv.writer(salida, lineterminator="\n", quoting=csv.QUOTE_MINIMAL)
    w.writerow(cabecera)
    for f in filas:
        w.writerow(f)
    ruta = os.path.join(destino, nombre)
    with open(ruta, "w", encoding="utf-8", newline="") as f:
        f.write(salida.getvalue())
    return ruta


def main():
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--origen", default=ORIGEN_POR_DEFECTO)
    ap.add_argument("--destino", default=os.path.join(RAIZ, "data"))
    a = ap.parse_args()
    os.makedirs(a.destino, exist_ok=True)
    param = filas_param(a.origen)
    escribir(a.destino, "param.csv", [
        "Catalogue rows of PARAM, generated by scripts/generar_semilla.py; do not edit by hand.",
        "001 districts, 004 banks (00 is the filler row), 030 departments, 031 provinces,",
        "044 document types, 140 casilla attributes of form 0931, 404 UIT by year, 976 countries.",
        "975 (update factors) has no rows: the factors are published each year and the",
        "administration loads them; the lookup shows an empty list until then.",
    ], ["Numero", "Argumento", "Funcion"], param)
    escribir(a.destino, "error.csv", [
        "Rows of ERROR, generated by scripts/generar_semilla.py; do not edit by hand.",
    ], ["CodError", "DescError"], ERRORES)
    cuenta = {}
    for n, _, _ in param:
        cuenta[n] = cuenta.get(n, 0) + 1
    print(" ".join("%s:%d" % kv for kv in sorted(cuenta.items())), file=sys.stderr)


if __name__ == "__main__":
    main()

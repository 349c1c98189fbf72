-- Tables of the family's shared database, as this module reads and writes them.
-- Column order matters: cNumero is the row check code and stays the last column of the tables
-- that carry it (CAB, HCAB, DET, HDET, F0931_PTCEA, HF0931_PTCEA); its computation walks the
-- columns by position. In CONT the taxpayer lists read DOC_ID_D as column 1 and NOMBRE as
-- column 3. Column names are case-insensitive, so the statements may spell them in any case.

-- Working declarations: header, casilla values, payment records, carried-forward losses.
CREATE TABLE CAB (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    FEC_PRO     TEXT,
    ESTADO      INTEGER,
    RECTIFICA   TEXT,
    BCOLIBRAD   TEXT,
    CHEQUE      TEXT,
    NROCHEQUE   TEXT,
    EFECTIVO    TEXT,
    cNumero     TEXT
);
CREATE UNIQUE INDEX CAB_CLAVE ON CAB (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, SEMANA);

CREATE TABLE DET (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    CASILLA     TEXT    NOT NULL,
    I_VALOR     TEXT,
    idcasilla   TEXT    DEFAULT '00',
    cNumero     TEXT
);
CREATE UNIQUE INDEX DET_CLAVE ON DET (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, SEMANA, CASILLA);
-- A save looks each of its rows up by casilla, whatever the week.
CREATE INDEX DET_CASILLA ON DET (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, CASILLA);

CREATE TABLE ACTA (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    PER_PAG     TEXT,
    tipo_asist  TEXT,
    IMPORTE     TEXT,
    cNumero     TEXT
);
CREATE INDEX ACTA_CLAVE ON ACTA (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO);

CREATE TABLE F0931_PTCEA (
    Tip_doc_d   INTEGER NOT NULL,
    Doc_id_d    TEXT    NOT NULL,
    Periodo     TEXT    NOT NULL,
    Formulario  TEXT    NOT NULL,
    Anho        TEXT    NOT NULL,
    Importe     TEXT,
    cNumero     TEXT
);
CREATE INDEX F0931_PTCEA_CLAVE ON F0931_PTCEA (Doc_id_d, Tip_doc_d, Periodo, Formulario, Anho);

-- Sent declarations: the working twins plus CORREL (and, in HCAB, the columns of the sending).
-- The family's sending module fills them; this module registers NORDEN and deletes.
CREATE TABLE HCAB (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    CORREL      TEXT    NOT NULL,
    FEC_PRO     TEXT,
    ESTADO      INTEGER,
    RECTIFICA   TEXT,
    BCOLIBRAD   TEXT,
    CHEQUE      TEXT,
    NROCHEQUE   TEXT,
    EFECTIVO    TEXT,
    FEC_ENV     DATE,
    NORDEN      TEXT,
    CONTROL     TEXT,
    cNumero     TEXT
);
CREATE UNIQUE INDEX HCAB_CLAVE ON HCAB (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, SEMANA, CORREL);

CREATE TABLE HDET (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    CORREL      TEXT    NOT NULL,
    CASILLA     TEXT    NOT NULL,
    I_VALOR     TEXT,
    idcasilla   TEXT    DEFAULT '00',
    cNumero     TEXT
);
CREATE UNIQUE INDEX HDET_CLAVE ON HDET (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, SEMANA, CORREL, CASILLA);

CREATE TABLE HACTA (
    TIP_DOC_D   INTEGER NOT NULL,
    DOC_ID_D    TEXT    NOT NULL,
    PERIODO     TEXT    NOT NULL,
    FORMULARIO  TEXT    NOT NULL,
    SEMANA      INTEGER NOT NULL DEFAULT 0,
    CORREL      TEXT    NOT NULL,
    PER_PAG     TEXT,
    tipo_asist  TEXT,
    IMPORTE     TEXT,
    cNumero     TEXT
);
CREATE INDEX HACTA_CLAVE ON HACTA (DOC_ID_D, TIP_DOC_D, PERIODO, FORMULARIO, CORREL);

CREATE TABLE HF0931_PTCEA (
    Tip_doc_d   INTEGER NOT NULL,
    Doc_id_d    TEXT    NOT NULL,
    Periodo     TEXT    NOT NULL,
    Formulario  TEXT    NOT NULL,
    CORREL      TEXT    NOT NULL,
    Anho        TEXT    NOT NULL,
    Importe     TEXT,
    cNumero     TEXT
);
CREATE INDEX HF0931_PTCEA_CLAVE ON HF0931_PTCEA (Doc_id_d, Tip_doc_d, Periodo, Formulario, CORREL, Anho);

-- Taxpayers and users of the family (kept by the launcher; only read here).
CREATE TABLE CONT (
    TIP_DOC_D    INTEGER NOT NULL,
    DOC_ID_D     TEXT    NOT NULL,
    TIPO_CONT    TEXT,
    NOMBRE       TEXT,
    USUARIO      TEXT,
    Tipo_Ingreso INTEGER
);
CREATE UNIQUE INDEX CONT_CLAVE ON CONT (TIP_DOC_D, DOC_ID_D);
CREATE INDEX CONT_USUARIO ON CONT (USUARIO);

CREATE TABLE CLAVES (
    Usuario     TEXT NOT NULL,
    Tipo        TEXT
);
CREATE UNIQUE INDEX CLAVES_CLAVE ON CLAVES (Usuario);

-- Catalogues: payload at fixed character positions of Funcion.
CREATE TABLE PARAM (
    Numero      TEXT NOT NULL,
    Argumento   TEXT NOT NULL,
    Funcion     TEXT
);
CREATE UNIQUE INDEX PARAM_CLAVE ON PARAM (Numero, Argumento);

CREATE TABLE ERROR (
    CodError    TEXT NOT NULL,
    DescError   TEXT
);
CREATE UNIQUE INDEX ERROR_CLAVE ON ERROR (CodError);

-- Register of report files.
CREATE TABLE SPOOL (
    CodRep      TEXT NOT NULL,
    Secuencia   TEXT NOT NULL,
    Archivo     TEXT NOT NULL,
    Fecha       DATETIME,
    Usuario     TEXT,
    Tip_doc_d   INTEGER,
    doc_id_d    TEXT
);
CREATE INDEX SPOOL_REPORTE ON SPOOL (CodRep, Secuencia);
CREATE UNIQUE INDEX SPOOL_ARCHIVO ON SPOOL (Archivo);

/**
 * pn10gdi: model and graphics engine of a gas pipe network application.
 *
 * The one header of the library. Plain C; every function is a flat export, every record a plain struct
 * in natural alignment. It reads in the order in which a host calls: records, option records, start,
 * load, fields, search, draw, edit, save, release.
 *
 * One model per process, one thread. Record numbers start at 1; 0 means no record. Colours are
 * 0x00BBGGRR. Texts are bytes of code page 1252, NUL-terminated.
 */
#ifndef PN10GDI_H
#define PN10GDI_H

#include <stdint.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#ifdef PN10_BUILD
#define PN10_EXPORT __declspec(dllexport)
#else
#define PN10_EXPORT __declspec(dllimport)
#endif
#ifdef _WIN64
#define PN10_CALL
#else
#define PN10_CALL __stdcall
#endif
#else
#define PN10_EXPORT __attribute__((visibility("default")))
#define PN10_CALL
/** Opaque handles of the portable platform; pn10platform.h makes them. */
typedef struct PnDeviceContext* HDC;
typedef struct PnWindow* HWND;
typedef struct PnBitmap* HBITMAP;
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ------------------------------------------------------------------------------------------------
 * Records of the model
 *
 * GetNdtAddress and its kin give the address of slot 0 of a table, so order and widths are fixed.
 * ---------------------------------------------------------------------------------------------- */
/** Node record. */
typedef struct Ndt {
  int32_t ID;            /* node id, stable across saves */
  char NODENAME[41];     /* node name */
  float PRESSURE;        /* pressure, in P_UNITS; below 0 = not given */
  uint8_t P_KNOWN;       /* 0 = pressure known, nonzero = not known */
  char P_UNITS[11];      /* pressure units text */
  float P_FACTOR;        /* factor from P_UNITS to the base pressure unit */
  float QB_LOAD;         /* base load in Q_UNITS */
  int16_t QB_KNOWN;      /* 0 = base load known */
  int16_t QB_DF;         /* nonzero = diversity factor applies to the base load */
  int16_t QB_STATUS;     /* 0 = base load on, nonzero = off */
  char Q_UNITS[11];      /* load units text */
  float Q_FACTOR;        /* factor from Q_UNITS to the base flow unit */
  float QX_LOAD;         /* external load */
  uint8_t QX_DF;         /* nonzero = diversity factor applies to the external load */
  uint8_t QX_STATUS;     /* 0 = external load on, nonzero = off */
  float QX_FIXED;        /* fixed external load */
  float ELEV;            /* elevation */
  float PATM;            /* atmospheric pressure */
  float T;               /* temperature */
  uint8_t T_KNOWN;       /* 0 = known, 1 = not known */
  float VISCOSITY;       /* gas viscosity */
  float SG;              /* specific gravity; negative = gas properties not known */
  float SH_RATIO;        /* specific heat ratio */
  float HV;              /* heating value */
  double X_COORD;        /* map X */
  double Y_COORD;        /* map Y */
  float Z_COORD;         /* map Z */
  double TEXT_X;         /* label anchor X; 0 with TEXT_Y 0 = automatic */
  double TEXT_Y;         /* label anchor Y */
  float TEXT_ANGLE;      /* label angle, radians; negative = global default */
  int16_t LABEL_ON;      /* nonzero = this node draws its label */
  double RESERVED_D;     /* carried through the file, no accessor */
  int32_t COLOR;         /* node colour; negative = default */
  float SYM_SIZE;        /* symbol size: 0 default, positive length, negative percent */
  int16_t SYMBOL;        /* symbol number; 0 default, negative = hollow */
  uint8_t HAS_RDX;       /* nonzero = its Rdx row is written at save */
  uint8_t HOST_BYTE_348; /* stored and returned */
  uint8_t HOST_BYTE_346; /* stored and returned */
  int16_t FLAG_TYPE;     /* flag marker: 0 none, +-1, +-2, 3, +-4 */
  int16_t REC_STATUS;    /* -1 = deleted; positive = setters stamp REC_DATE */
  char REC_DATE[9];      /* date of last change, YYYYMMDD */
  uint8_t HYD_STATUS;    /* 0 = on, nonzero = off */
  uint8_t HYD_TYPE;      /* 0 connection, 1 valve, 2 further valve-like kind */
  uint8_t HOST_BYTE_385; /* stored and returned */
  float CMP_VALUE;       /* measured comparison value */
  uint8_t CMP_MODE;      /* 0 none, 1 against PRESSURE, 2 against QB_LOAD */
} Ndt;

/** Pipe record. */
typedef struct Pdt {
  int32_t ID;               /* pipe id, stable across saves */
  int32_t FROM_NODE;        /* record number of the From node */
  int32_t TO_NODE;          /* record number of the To node */
  uint8_t HYD_TYPE;         /* 0 Pipe, 1 Regulator, 2 Compressor, 3 Valve, 4 Well, 5 Fitting */
  int16_t EQUATION;         /* flow equation code; negative = from facility or model */
  uint8_t STATUS;           /* 0 = on, nonzero = off */
  char SIZE_TYPE[21];       /* size and type text, key into the lookup of HYD_TYPE */
  char DR_UNITS[11];        /* diameter and roughness units text */
  float D_FACTOR;           /* diameter unit factor, used by magnitude */
  uint8_t SIZE_FLAG;        /* nonzero on a Pipe = size label ends in "*" */
  int16_t HOST_SHORT_34;    /* stored and returned */
  float LENGTH;             /* Pipe: length; Regulator, Compressor: set P; Valve: open; Well: coefficient */
  char L_UNITS[11];         /* length units text */
  float L_FACTOR;           /* factor from L_UNITS to the base length unit */
  float EFFICIENCY;         /* efficiency */
  float FLOW;               /* flow, positive = From to To */
  char Q_UNITS[11];         /* flow units text */
  float Q_FACTOR;           /* factor from Q_UNITS to the base flow unit */
  float DP;                 /* pressure drop */
  char DP_UNITS[11];        /* pressure units text of the pipe */
  float DP_FACTOR;          /* pressure unit factor of the pipe */
  float Z_FACTOR;           /* compressibility */
  int16_t FACILITY;         /* facility number */
  uint8_t FTG_COUNT;        /* number of Fdt records of this pipe */
  uint8_t CMP_MODE;         /* 0 none, 1 against DP, 2 against FLOW */
  float FTG_EQ_LENGTH;      /* sum of the equivalent lengths of its fittings */
  double CMP_VALUE;         /* measured comparison value */
  int16_t CUST_COUNT;       /* customers counted as attached */
  double TEXT_X;            /* label anchor X */
  double TEXT_Y;            /* label anchor Y */
  float TEXT_ANGLE;         /* label angle */
  int16_t LABEL_ON;         /* nonzero = this pipe draws its label */
  double CALC_RESERVED_D;   /* result block, cleared by field 102 */
  int32_t COLOR;            /* colour override: >= 0 colour, -1 -2 -3 requests */
  uint8_t VTX_MODE;         /* 0 straight, 1 and 2 one vertex record (arc), 4 vertex run */
  int16_t LINE_WIDTH;       /* line width code */
  int16_t LINE_TYPE;        /* line type code */
  uint8_t HOST_BYTE_58;     /* stored and returned */
  char LINK_ID[21];         /* external link identifier */
  uint8_t CALC_RESERVED_B;  /* result block, cleared by field 102 */
  float CALC_RESERVED_F[7]; /* result block, cleared by field 102 */
  int32_t VTX_FIRST;        /* first vertex as a file record number */
  int32_t VTX_LAST;         /* last vertex as a file record number */
  float ROUGHNESS;          /* roughness used without a lookup row */
  float VELOCITY;           /* velocity */
  float REYNOLDSNO;         /* Reynolds number */
  float MAOP;               /* maximum allowable operating pressure */
  uint8_t FLAG_BYTE;        /* flag byte, set by FlagPipe */
  uint8_t HOST_BYTE_154;    /* stored and returned */
  int16_t REC_STATUS;       /* -1 = deleted; positive = setters stamp REC_DATE */
  int32_t GROUP_ID;         /* group of this pipe, 0 = none */
  int16_t GROUP_TYPE;       /* group type */
  char REC_DATE[9];         /* date of last change, YYYYMMDD */
} Pdt;

/** Customer record. */
typedef struct Cdt {
  int32_t ID;             /* customer id, stable across saves */
  int32_t PIPE_REC;       /* record number of the pipe it is tapped to, 0 = none */
  int16_t NODE_ASGN;      /* 0 off, 1 From, 2 To, 3 both, 4 branch, 5 trunk, 11 to 14 diversity classes */
  float UNIT_LOAD;        /* load of one unit */
  char LOAD_UNITS[11];    /* load units text */
  float LOAD_FACTOR;      /* factor from LOAD_UNITS to the base flow unit */
  double X_COORD;         /* map X (meter) */
  double Y_COORD;         /* map Y (meter) */
  float Z_COORD;          /* map Z */
  int32_t COLOR;          /* customer colour; negative = default */
  int16_t HOST_SHORT_409; /* stored and returned; symbol size in the picture */
  int16_t HOST_SHORT_410; /* stored and returned; symbol number in the picture */
  int16_t HOST_SHORT_437; /* stored and returned */
  int16_t HOST_SHORT_411; /* stored and returned; label switch in the picture */
  double TEXT_X;          /* label anchor X */
  double TEXT_Y;          /* label anchor Y */
  float TEXT_ANGLE;       /* label angle */
  double CALC_RESERVED_D; /* carried; cleared by field 449 */
  double SX_COORD;        /* service tap X on the pipe */
  double SY_COORD;        /* service tap Y on the pipe */
  int16_t VTX_MODE;       /* 0 none, 4 vertex run of the service line */
  int16_t LINK_FLAG;      /* nonzero = linked to another customer */
  int32_t LINK_CUST;      /* ID of the linked customer */
  char LINK_ID[41];       /* external link identifier */
  int16_t HOST_SHORT_425; /* stored and returned */
  int16_t HOST_SHORT_436; /* stored and returned; cleared by field 449 */
  int16_t COUNT;          /* number of units */
  float LOAD_MULT;        /* load multiplier, 0 = load off */
  int16_t LOAD_DF;        /* nonzero = diversity factor applies */
  int16_t HOST_SHORT_431; /* stored and returned */
  uint8_t FLAG_BYTE;      /* customer byte 446, set by FlagCust */
  uint8_t HOST_BYTE_464;  /* stored and returned */
  int16_t REC_STATUS;     /* -1 = deleted; positive = setters stamp REC_DATE */
  char REC_DATE[9];       /* date of last change, YYYYMMDD */
} Cdt;

/** Vertex record. */
typedef struct Vtx {
  int32_t VTX_OWNER;  /* ID of the owning pipe or customer, 0 = killed */
  int16_t VTX_KIND;   /* 0, 2, 8 pipe; 1, 3, 5, 7 customer service */
  double VTX_X;       /* X; radius when the vertex describes an arc */
  double VTX_Y;       /* Y; included angle in radians for an arc */
  float VTX_Z;        /* Z */
  uint8_t VTX_HILITE; /* hilite request (HilitVtx), memory only */
  uint8_t VTX_DRAWN;  /* hilite drawn, memory only */
} Vtx;

/** Fitting record. */
typedef struct Fdt {
  int32_t FTG_PIPE_ID; /* ID of the owning pipe, 0 = empty slot */
  char FTG_NAME[21];   /* fitting name */
  int16_t FTG_NUM;     /* host's number */
  float FTG_EQL;       /* equivalent length */
  int16_t FTG_FLAG;    /* host's flag */
} Fdt;

/** Node screen record, in memory only. */
typedef struct NXY {
  int32_t Color;        /* colour the node is drawn with, -1 right after InitNXY */
  int16_t Drawn;        /* -1 or set = to be drawn, 0 = up to date, -2 = out of hit tests */
  uint8_t HILITE;       /* hilite request (HilitNode) */
  uint8_t HILITE_DRAWN; /* hilite is on the screen, field 376 */
  int16_t Report;       /* facility flag */
  int16_t Aux;          /* facility flag, field 384 */
  int16_t Active;       /* facility flag */
  int16_t Display;      /* facility flag */
} NXY;

/** Pipe screen record, in memory only. */
typedef struct PXY {
  int32_t FIRST_VTX;    /* first Vtx record of the run, 0 = none; field 106 */
  int32_t LAST_VTX;     /* last Vtx record; field 107 */
  int32_t Color;        /* resolved colour, -1 right after InitPXY; field 127 */
  int16_t LineWidth;    /* resolved line width code */
  int16_t LineType;     /* resolved line type code, 6 = not drawn */
  uint8_t Display;      /* copy of the facility flag; the pipe pass's draw flag */
  int16_t Report;       /* copy of the facility flag */
  int16_t Aux;          /* copy of the facility flag */
  int16_t Active;       /* copy of the facility flag */
  uint8_t DRAWN;        /* 1 = drawn by the last pipe pass */
  uint8_t HILITE;       /* hilite request (HilitPipe) */
  uint8_t HILITE_DRAWN; /* hilite is on the screen, field 128 */
  float LENGTH;         /* computed length, field 119 */
  int32_t TraceColor;   /* trace mark (colour + 1), -1 after InitPXY, 0 after SetColorPXY */
} PXY;

/** Customer screen record, in memory only. */
typedef struct CXY {
  int32_t Color;        /* resolved colour, -1 right after InitCXY; field 459 */
  int32_t FIRST_VTX;    /* first Vtx record of the service line; field 451 */
  int32_t LAST_VTX;     /* last Vtx record; field 452 */
  int16_t DRAW;         /* draw flag: nonzero = to be drawn, -2 = out of hit tests */
  uint8_t HILITE;       /* hilite request (HilitCust) */
  uint8_t HILITE_DRAWN; /* hilite is on the screen, field 458 */
  int32_t CHANGE_VTX_A; /* given by SetCXYChange */
  float CHANGE_FRAC_A;  /* given by SetCXYChange */
  int32_t CHANGE_VTX_B; /* given by SetCXYChange */
  float CHANGE_FRAC_B;  /* given by SetCXYChange */
  int32_t TraceColor;   /* trace mark, -1 after InitCXY, 0 after SetColorCXY */
} CXY;

/** Header line. */
typedef struct Hdr {
  char LINE[257]; /* one header line, 255 characters used; the table is Hdr[201], lines 0 to 200 */
} Hdr;

/** Reference record of a node. */
typedef struct Rdx {
  char KEY_TEXT[41];   /* node name */
  char LONG_TEXT[257]; /* long text */
  char SHORT_TEXT[41]; /* short text */
} Rdx;

/** Facility row. */
typedef struct Fac {
  char Name[257];       /* facility name, 40 characters significant */
  int32_t Idx;          /* facility number that records store */
  int16_t Display;      /* 0 hides the class */
  int16_t Aux;          /* carried on/off setting */
  int16_t Report;       /* 0 leaves the class out of reports */
  int16_t Active;       /* 0 makes the class unsearchable */
  int32_t Color;        /* 0x00BBGGRR, -1 none */
  int16_t LineType;     /* 0 first type, -1 none */
  int16_t LineWidth;    /* below 1 none */
  int16_t Equation;     /* default flow equation, negative none */
  char PressUnits[257]; /* default pressure units, 13 characters significant */
} Fac;

/** Pipe size row; lengths in inches. */
typedef struct PLut {
  char KEY_TEXT[41];    /* size name, the key */
  float WALL;           /* wall thickness, inches; field 11 */
  float OUTSIDE_D;      /* outside diameter, inches; field 9 */
  float INSIDE_D;       /* inside diameter, inches; field 2 */
  float ROUGHNESS;      /* roughness, inches; field 8 */
  float EFFICIENCY;     /* efficiency multiplier; field 7 */
  float FIELD_5;        /* field 5 */
  float YIELD;          /* yield strength, psi; field 12 */
  int16_t FIELD_1;      /* field 1 */
  float UNIT_FACTOR;    /* factor of the file's diameters to inches */
  char D_UNITS[11];     /* diameter units text */
  int16_t FIELD_10;     /* field 10 */
  int16_t FIELD_4;      /* field 4 */
  char S_UNITS[11];     /* strength units text */
  int32_t COLOR;        /* colour of the size, -1 none */
  int16_t LINE_TYPE;    /* line type of the size */
  int16_t LINE_WIDTH;   /* line width of the size */
  char TEXT_106[21];    /* text at file offset 106 */
  char DESCRIPTION[81]; /* description */
  char REFERENCE[81];   /* reference */
  char TEXT_286[21];    /* text at file offset 286 */
  char TEXT_306[21];    /* text at file offset 306 */
  char TEXT_326[41];    /* text at file offset 326 */
  char TEXT_366[41];    /* text at file offset 366 */
  int16_t FIELD_3;      /* field 3 */
  float FIELD_16;       /* field 16 */
} PLut;

/** Key index of the pipe sizes. */
typedef struct PLutIdx {
  char KEY_TEXT[42]; /* copy of the key, sorted by its first 40 characters */
  int16_t ROW;       /* PLut row number */
} PLutIdx;

/** Fitting row. */
typedef struct FLut {
  char KEY_TEXT[41];    /* fitting name, the key; field 5 */
  float EQ_LENGTH;      /* k, equivalent length, feet (0 for type 55); field 12 */
  float REF_D;          /* d0, reference diameter, inches (psi for type 55); field 11 */
  float ROUGHNESS;      /* roughness, inches; field 15 */
  float EFFICIENCY;     /* efficiency multiplier; field 18 */
  char D_UNITS[11];     /* diameter units, or pressure units for type 55; field 13 */
  char L_UNITS[11];     /* length units; field 14 */
  char TEXT_136[21];    /* text at file offset 136; field 9 */
  int16_t FIELD_6;      /* field 6 */
  float FIELD_7;        /* field 7 */
  float FIELD_8;        /* field 8 */
  int16_t FIELD_10;     /* field 10 */
  char TEXT_168[21];    /* text at file offset 168; field 17 */
  char DESCRIPTION[81]; /* description; field 22 */
  int16_t FTG_TYPE;     /* fitting type; field 19 */
  int16_t FIELD_20;     /* field 20, device code of its picture */
  float FIELD_21;       /* field 21 */
} FLut;

/** Regulator row. */
typedef struct RLut {
  int16_t EQUATION;  /* flow equation of the calculation library; field 7 */
  char KEY_TEXT[41]; /* regulator name, trimmed, the key; field 10 */
  float C[5];        /* coefficients c0 to c4; c0 is fields 4 and 8 */
  float SET_VALUE;   /* set pressure, psi; field 5, field 2 in its units */
  char P_UNITS[11];  /* pressure units text; field 3 */
  int16_t FIELD_9;   /* field 9 */
  float FIELD_13;    /* never loaded, 0 */
  float FIELD_14;    /* file value / 100; field 14 gives it x 100 */
  char UNITS[11];    /* units text; field 15 */
} RLut;

/** Valve row. */
typedef struct VLut {
  char KEY_TEXT[41]; /* valve name, trimmed, the key; field 3 */
  int16_t FIELD_7;   /* field 7; 9 = wired bow tie */
  float DIAMETER;    /* diameter, inches */
  char D_UNITS[11];  /* diameter units text */
  float COEF_A;      /* coefficient at file offset 56 */
  float COEF_B;      /* coefficient at file offset 60, 35.0 when 0 and FIELD_7 is 0 */
  float FIELD_6;     /* coefficient never loaded, 0; field 6 */
  int16_t FIELD_2;   /* field 2 */
} VLut;

/** Well row. */
typedef struct WLut {
  char KEY_TEXT[21]; /* well name, first 20 characters, the key; field 5 */
  float FIELD_2;     /* field 2 */
  float FIELD_3;     /* field 3 */
  int16_t FIELD_4;   /* field 4 */
  float FIELD_8;     /* never loaded, 0; field 8 */
} WLut;

/** Compressor row. */
typedef struct CLut {
  char KEY_TEXT[41];    /* compressor name, the key; field 12 */
  int16_t EQUATION;     /* power equation, never loaded, 0 */
  float A;              /* coefficient a */
  float B;              /* coefficient b */
  float C;              /* coefficient c */
  float FUEL_RATE;      /* fuel rate x its unit factor; field 3, field 2 in its units */
  float FIELD_6;        /* field 6 */
  char FUEL_UNITS[11];  /* fuel units text; field 4 */
  char POWER_UNITS[11]; /* power units text; field 5 */
  int16_t FIELD_11;     /* field 11 */
  float FIELD_15;       /* never loaded, 0; field 15 */
} CLut;

/** Device point returned by value. */
typedef struct DevPair {
  int32_t x, y;
} DevPair; /* device point returned by value */

/* ------------------------------------------------------------------------------------------------
 * Option records of the picture
 *
 * 32-bit slots that the host fills and keeps; the library only reads them.
 * ---------------------------------------------------------------------------------------------- */

typedef struct ViewOpts {
  /* general */
  int32_t BackColor;      /* colour of the screen and inside hollow symbols on it; paper is white */
  int32_t LineWidth;      /* pen width of symbols, device units; above 97 counts as 2 */
  int32_t SymbolsAllZoom; /* flag: symbols under five device units too, and flags beyond the zoom limits */
  /* nodes */
  int32_t NodeOn;               /* flag: node pass on; else the single node of SetDrawVars */
  float NodeZoomLimit;          /* beyond this map scale no nodes; 0 no limit */
  int32_t NodeSize;             /* tenths of a display unit; negative: tenths of a percent of the view height */
  int32_t NodeColor;            /* of nodes with a negative COLOR */
  int32_t NodeSpecialColor;     /* the same for node types 1 and 2 */
  int32_t NodeSymbol;           /* of nodes with SYMBOL 0; negative: hollow */
  float NodeFontSize;           /* screen: points; font mode 1 of PlotOpts: display units times 1.4; 0 no labels */
  int32_t NodeFontBold;         /* flag, screen */
  int32_t NodeTextColor;        /* colour */
  int32_t NodeLabelAngle;       /* compass direction of labels, tenths of a degree */
  int32_t NodeLabelMask;        /* nonzero: labels on */
  float NodeLabelLimit;         /* labels while the map scale is at or below it; 0 none */
  int32_t NodeLabelsOnPrint;    /* not read; see PlotOpts.PrintLabelsOn */
  int32_t NodeLabelsLoadedOnly; /* flag: labels of loaded nodes alone */
  int32_t NodePrefix;           /* flag: label lines with a prefix */
  int32_t NodeUnits;            /* flag: label lines with their unit */
  int32_t NodeTransparent;      /* flag: no background behind the text */
  int32_t NodeLeader;           /* flag: a line from a moved label to its node */
  int32_t NodeLabel[20];        /* field numbers of the label lines; 0 ends them */
  int32_t NodeFlag3On;          /* flag: outlined pennant of FLAG_TYPE 3 */
  int32_t NodeLoadMarkOn;       /* flag: red flag of nodes with a load */
  /* pipes */
  int32_t PipeColor;     /* of pipes, see SetPipeColor */
  int32_t ElemColor;     /* of regulators, compressors, valves and wells */
  int32_t PipeColorMode; /* int16: 0 or -1 plain, -2 by size, -3 by facility */
  int32_t PipeWidth;     /* int16: pen width, 98 by facility, 99 by size */
  int32_t PipeLineType;  /* int16: line style number, 98 by facility, 99 by size; 6 hides */
  float PipeFontSize;    /* as NodeFontSize */
  int32_t PipeFontBold;  /* flag, screen */
  int32_t PipeTextColor; /* colour */
  int32_t PipeLabelMask; /* nonzero: labels on */
  float PipeLabelLimit;  /* as NodeLabelLimit */
  int32_t PipePrefix;    /* flags, as for nodes */
  int32_t PipeUnits;
  int32_t PipeTransparent;
  int32_t PipeLeader;
  int32_t PipeLabel[19];     /* field numbers of the label lines; 0 ends them, 71 numbers the segments */
  int32_t DevicesUnlabelled; /* flag: labels for pipes alone */
  int32_t DevicesOn;         /* flag: symbols of devices and fittings */
  float DeviceZoomLimit;     /* screen: beyond this map scale no symbols; 0 no limit */
  int32_t DeviceSize;   /* 0 end to end; tenths of a world unit, bow tie: display unit; negative: 1/1000 of the view */
  int32_t ArrowsOn;     /* flag: flow arrows */
  float ArrowZoomLimit; /* beyond this map scale no arrows; 0 no limit */
  int32_t ArrowSize;    /* 0 by the node size; in 0.3 display units; negative: in 0.3 percent of the view height */
  int32_t ArrowStyle;   /* 0 open, else feathered */
  int32_t ArrowMinFlow; /* hundredths of a flow unit; less flow has no arrow */
  int32_t ArrowsAtMidVertex; /* flag: one arrow in the middle of a polyline, else one on every segment */
  int32_t VtxMarksOn;        /* flag: marks at vertices */
  int32_t VtxMarksFilled;    /* flag: marks and devices in the pipe's colour, else hollow */
  /* customers */
  int32_t CustOn;         /* flag: customer pass on; else the single customer of SetDrawVars */
  float CustZoomLimit;    /* as NodeZoomLimit */
  int32_t CustSize;       /* as NodeSize */
  int32_t CustColor;      /* of customers with a negative COLOR */
  int32_t CustSymbol;     /* of customers without one; 1 none and no service line; negative: hollow */
  float CustFontSize;     /* as NodeFontSize */
  int32_t CustFontBold;   /* flag, screen */
  int32_t CustTextColor;  /* colour */
  int32_t CustLabelAngle; /* as NodeLabelAngle */
  int32_t CustLabelMask;  /* nonzero: labels on */
  float CustLabelLimit;   /* as NodeLabelLimit */
  int32_t CustPrefix;     /* flags, as for nodes */
  int32_t CustUnits;
  int32_t CustTransparent;
  int32_t CustLeader;
  int32_t CustLabel[20];    /* field numbers of the label lines; 428 numbers the segments */
  int32_t CustChangeMarkOn; /* flag: marks where a service line changes */
  /* graphic text and user graphics */
  int32_t TextOn;        /* flag: text pass on */
  int32_t UgdOn;         /* flag: user graphics pass on */
  int32_t UgdLineStyle;  /* line style number of user graphics without one */
  int32_t UgdSymbolSize; /* as NodeSize */
} ViewOpts;

typedef struct PlotOpts {
  /* general */
  int32_t Mono;          /* flag: prints in black */
  int32_t Metric;        /* flag: print sizes in thousandths of a millimetre, else of an inch */
  int32_t PollPercent;   /* share of a pass between two looks at the keyboard; 0 every item */
  int32_t ShortPipeSkip; /* flag: no pipes and chords shorter than the pixels of SetPNGDIScale */
  int32_t ClipOn;        /* flag: lines cut to the window before they are painted */
  /* selection */
  int32_t HiliteColor; /* of selected items; negative: one that stands off the background */
  int32_t GripsOn;     /* flag: selected items have grips, on screen */
  int32_t GripsShown;  /* flag: and they are painted; without it they are only erased */
  int32_t GripColor;   /* colour */
  int32_t GripSize;    /* hundredths of a percent of the view height */
  /* print sizes */
  int32_t PrintNodeSize;  /* of a node of the default size, see Metric */
  int32_t PrintCustSize;  /* of a customer of the default size */
  int32_t PrintLineWidth; /* of a line of ViewOpts.LineWidth; 0 keeps it */
  int32_t PrintLabelsOn;  /* flag: labels of nodes, pipes and customers on paper */
  /* fonts of the labels */
  float NodePrintFontSize; /* tenths of a point, or of a world unit times 1.4 with the mode 1 */
  int32_t NodePrintBold;   /* flag, paper */
  int32_t NodeFontMode;    /* 1 text grows with the map, else points */
  float PipePrintFontSize; /* as for nodes */
  int32_t PipePrintBold;
  int32_t PipeFontMode;
  float CustPrintFontSize; /* as for nodes */
  int32_t CustPrintBold;
  int32_t CustFontMode;
  /* sheet */
  int32_t FrameOn;       /* flag */
  int32_t FrameWidth;    /* thousandths of an inch, or of a millimetre with UnitOpts.Metric */
  int32_t TitleOn;       /* flag */
  int32_t TitleFontSize; /* tenths of a point */
  int32_t TitleBold;     /* flag */
  int32_t BlockFrameOn;  /* flag */
  int32_t BlockFontSize; /* tenths of a point */
  int32_t BlockBold;     /* flag */
  int32_t ScaleMode;     /* 0 inches or millimetres to a world unit, else a ratio */
} PlotOpts;

typedef struct UnitOpts {
  float Digits[32]; /* decimals of each labelled quantity, see GetNumFormat */
  int32_t Metric;   /* flag: the sheet is metric */
} UnitOpts;

/* ------------------------------------------------------------------------------------------------
 * Start: paths, units, base conditions
 *
 * Called once before anything is loaded. Every setting is 0 or empty until its setter ran.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Sets the two data paths and makes red (255) the colour of pipes that are off.
 * @param dataPath    prefix of the files of a trace, with its last separator; null counts as empty
 * @param secondPath  kept for the host
 * @return 0
 */
PN10_EXPORT int32_t PN10_CALL SetGlobalGDI(const char* dataPath, const char* secondPath);
/**
 * Sets unit texts and factors of labels and computed lengths. Texts keep 40 characters; null counts as empty.
 * @param velUnits, velFactor  velocity units and the divisor of the velocity label; 0 acts as 1
 * @param elevUnits, coordUnits  units of the elevation label and of the X, Y and Z labels
 * @param effFactor     factor of the total efficiency label; 0 acts as 1 where it divides
 * @param lengthFactor  of computed lengths: 0 plane, positive a factor, negative when coordinates are degrees
 * @param tolerance     distance below which points coincide, in model units
 */
PN10_EXPORT void PN10_CALL SetGlobalUnits(const char* velUnits, const char* elevUnits, const char* coordUnits,
                                          float velFactor, float effFactor, float lengthFactor, float tolerance);
/** Stores a cancel flag. Nothing looks at it: long passes watch the keyboard. */
PN10_EXPORT void PN10_CALL SetAppCancel(int16_t cancelFlag);

/**
 * Store the base conditions and the units of the node values that no node names.
 *
 * Texts are cut at 40 characters. The atmospheric pressure factor is GetUnitFactor(patmUnits, 0, "PUS"). The
 * viscosity factor is always 0: no family of units is asked for it.
 * @param baseP      base pressure, psi absolute
 * @param baseT      base temperature, degrees Rankine
 * @param patmUnits  of PATM
 * @param tempUnits  of T; the first letter counts: "C" Celsius, "K" Kelvin, "R" Rankine, else Fahrenheit
 * @param visUnits   of VISCOSITY
 * @param hvUnits    of HV
 */
PN10_EXPORT void PN10_CALL SetBaseCond(float baseP, float baseT, const char* patmUnits, const char* tempUnits,
                                       const char* visUnits, const char* hvUnits);

/**
 * Load the calculation library "hq50_calcs" and bind its entries "CalcReg_", "CalcComp_" and "CalcPave".
 *
 * It is looked for beside this library and on the loader's path. When it is not there nothing happens: the fields
 * that ask it are 0 from then on. It stays until FreeHQDll.
 */
PN10_EXPORT void PN10_CALL SetHQDll(void);

/* ------------------------------------------------------------------------------------------------
 * Lookup libraries
 *
 * Loaded before the model, so that pipe properties resolve; a pipe finds its row by SIZE_TYPE. A file has records
 * of one stride, the first of which is a header that nothing reads; values become inches, feet and psi at load.
 * Rows count from 1, row 0 is empty. The count of pipe sizes is the number of rows; the counts of the other five
 * are one above it, and the row at the count is empty.
 *
 * ReadPLut and the Init calls release what their table held. The other five loaders forget it: call FreeLut first.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Load the pipe sizes (stride 432) and sort the index of their keys.
 *
 * @return number of rows; -1 the file can't be opened, -2 it holds no record (both leave the old rows unused until
 *         they are released), -4 no memory. On failure the count is 0.
 */
PN10_EXPORT int32_t PN10_CALL ReadPLut(const char* path);

/**
 * Load the fittings (stride 436), regulators (430), valves (344), wells (324) or compressors (388).
 *
 * @return the count, the header counted; -1 the file can't be opened, -2 it holds no record, -3 no memory.
 *         On failure the count is 0.
 */
PN10_EXPORT int32_t PN10_CALL ReadFLut(const char* path);
PN10_EXPORT int32_t PN10_CALL ReadRLut(const char* path);
PN10_EXPORT int32_t PN10_CALL ReadVLut(const char* path);
PN10_EXPORT int32_t PN10_CALL ReadWLut(const char* path);
PN10_EXPORT int32_t PN10_CALL ReadCLut(const char* path);

/** Make an empty table of one row, count 0, for a host without the file. Returns 0; -4 (PLut), -3 no memory. */
PN10_EXPORT int32_t PN10_CALL InitPLut(void);
PN10_EXPORT int32_t PN10_CALL InitFLut(void);
PN10_EXPORT int32_t PN10_CALL InitRLut(void);
PN10_EXPORT int32_t PN10_CALL InitVLut(void);
PN10_EXPORT int32_t PN10_CALL InitWLut(void);
PN10_EXPORT int32_t PN10_CALL InitCLut(void);

/* ------------------------------------------------------------------------------------------------
 * Facility table
 *
 * Loaded before the pipes: ReadPdt copies the settings of its facility to each pipe. Rows count from 1; row 0 is
 * empty and answers for every number that is not there. The count has 16 bits. Numbers from 30000 on are reserved:
 * 30002 colour legend, 30003 bill of materials, 30005 marked views, 30006 pipe crossings.
 *
 * Editing a row changes nothing on the map until SetPipeFacSettings, ResetPipeFacSettings or ResetFacSettings.
 * ---------------------------------------------------------------------------------------------- */

/** Fields of a facility row, and three numbers of the table. */
typedef enum FacField {
  FAC_ROW = 0,          /* RO row number */
  FAC_NAME = 1,         /* RW text 257, 40 characters significant */
  FAC_IDX = 2,          /* RW int32, the facility number; below 30000 it may raise FAC_LAST_NUMBER */
  FAC_DISPLAY = 3,      /* RW int16, 0 = hidden on the map */
  FAC_AUX = 4,          /* RW int16, carried to pipes and nodes */
  FAC_REPORT = 5,       /* RW int16, 0 = left out of reports */
  FAC_ACTIVE = 6,       /* RW int16, 0 = inactive and out of searches */
  FAC_COLOR = 7,        /* RW int32, -1 = none */
  FAC_LINE_TYPE = 8,    /* RW int16, 0 = first type, -1 = none */
  FAC_LINE_WIDTH = 9,   /* RW int16, below 1 = none; a pipe is drawn one wider */
  FAC_EQUATION = 10,    /* RW int16, default flow equation, negative = none */
  FAC_PRESS_UNITS = 11, /* RW text 257, 13 characters significant; "Default..." = the model's own */
  FAC_LAST_NUMBER = 12, /* RW int32, highest number below 30000 so far */
  FAC_COUNT = 13        /* RW int16, number of rows */
} FacField;

/**
 * Read a facility file in place of the table, and append the reserved rows that it lacks.
 *
 * Text, one value per line: a title, the row count, then the fields 1 to 11 of each row. A number that is malformed
 * is 0; a file that ends early repeats its last line.
 * @return row count; -2 the file can't be opened, -1 no memory or a negative count. On failure there is no table.
 */
PN10_EXPORT int32_t PN10_CALL ReadFac(const char* path);

/** Make the table of a new model: four rows, last number 0. Returns 4; -1 no memory. */
PN10_EXPORT int32_t PN10_CALL DefaultFac(void);

/**
 * Make a new table of zeroed rows in place of the old one, whose rows are gone.
 *
 * @param rowCount  16 bits count
 * @return the count; -1 no memory or a negative count, and no table then
 */
PN10_EXPORT int32_t PN10_CALL ReallocFac(int32_t rowCount);

/**
 * Read one field of a facility.
 *
 * @param row    row number; 0 takes the row of `facNo`, or the empty row when there is none
 * @param facNo  facility number, looked at when `row` is 0
 * @param text   receives a text field with 1.0 as the result
 * @param field  a FacField
 * @return the value; -1.0 for another field and for a row beyond the table, both silent
 */
PN10_EXPORT double PN10_CALL GetFacVal(int32_t row, int32_t facNo, char* text, int16_t field);

/**
 * Store one field of a facility row; row 0 stores nothing, not even the counters.
 *
 * Values are truncated; short fields keep 16 bits. A field outside 1 to 13 shows "setfac <row>".
 */
PN10_EXPORT void PN10_CALL SetFacVal(int32_t row, int16_t field, const char* text, double value);

/** First row with this facility number, or 0. */
PN10_EXPORT int32_t PN10_CALL FindFacRnoIdx(int32_t facNo);

/** First row with this name, case-sensitive over 40 characters, or 0. */
PN10_EXPORT int32_t PN10_CALL FindFacRnoId(const char* name);

/** Add 1 to the count and return it; the row that it announces must have room already. */
PN10_EXPORT int32_t PN10_CALL GetNextFacCnt(void);

/** Add 1 to the last facility number and return it: the number of a new class. */
PN10_EXPORT int32_t PN10_CALL GetNextFacId(void);

/* ------------------------------------------------------------------------------------------------
 * Header strings and reference records
 *
 * Header: 201 lines of settings, numbered 0 to 200, in a text file below a magic line; the host gives them
 * their meaning. References: a key (a node's name), a long and a short text per row, rows from 1; ReadNdt makes
 * an empty table of ten rows. Both tables go with FreeModel.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Write or read a header file.
 *
 * A read replaces the table, releasing the old one; each line is cut at 255 characters, loses the white space at
 * its end, and a missing line repeats the last one there is. Lines 120 to 125 are then "1" whatever the file says.
 * @param path   full name of the file
 * @param magic  first line of the file; a read wants the file to begin with it, and "" fits every file
 * @param mode   0 write (201 empty lines without a table), 1 read, others nothing
 * @return 200; -1 the magic line differs, the table stays; -2 the file can't be opened or written; -4 no memory
 */
PN10_EXPORT int32_t PN10_CALL HdrIo(const char* path, const char* magic, int16_t mode);

/**
 * Copy a header line.
 * @param line  0 to 200; others, and any line before the first read, give an empty text
 * @param text  receives the line, 257 bytes suffice
 */
PN10_EXPORT void PN10_CALL GetHdrVal(int16_t line, char* text);

/** Store a header line of up to 256 characters; nothing happens without a table or outside lines 0 to 200. */
PN10_EXPORT void PN10_CALL SetHdrVal(int16_t line, const char* text);

/**
 * Read one line out of a header file.
 *
 * On the way, lines 0 to `line` of the file overwrite those of the table, when there is one.
 * @param text  receives the line without a terminator: pass a cleared buffer of 257 bytes
 * @param line  0 to 200; others copy nothing
 * @return 0; -1 the magic line differs; -2 the file can't be opened
 */
PN10_EXPORT int32_t PN10_CALL GetValFromHdrFile(const char* path, const char* magic, char* text, int16_t line);

/** Address of header line 0, an Hdr; 0 before the first read. Valid until the next read or FreeModel. */
PN10_EXPORT intptr_t PN10_CALL GetHdrAddress(void);

/**
 * Make a reference table of `count` rows and read <base>.rdx into it; a missing file leaves the rows empty.
 *
 * The table of ReadNdt is replaced, not released.
 * @return 0; -1 no memory, and no table then
 */
PN10_EXPORT int32_t PN10_CALL ReadRdx(int32_t count, const char* base);

/**
 * Store a reference row; texts are cut at 40, 256 and 40 characters.
 *
 * Rows beyond the table make it grow, which moves it: ask for its address again. Rows below 1 do nothing.
 */
PN10_EXPORT void PN10_CALL PutRdx(int32_t row, const char* key, const char* longText, const char* shortText);

/**
 * First row from 1 to `count` with this key, white space at the end of both keys aside.
 *
 * The keys of the rows that were looked at lose the white space at their end.
 * @param longOut   receives the long text of the row, 257 bytes suffice; left alone when nothing is found
 * @param shortOut  receives the short text, 41 bytes suffice
 * @return the row, 0 when there is none
 */
PN10_EXPORT int32_t PN10_CALL FindRdx(int32_t count, const char* key, char* longOut, char* shortOut);

/** Address of reference row 0, an Rdx; 0 without a table. Valid until PutRdx adds a row, ReadRdx or FreeModel. */
PN10_EXPORT intptr_t PN10_CALL GetRdxAddress(void);

/* ------------------------------------------------------------------------------------------------
 * Load: ReadVtx, ReadNdt, ReadPdt, ReadCdt, in this order
 *
 * A loader forgets the tables that it finds, without releasing them: call FreeModel first.
 * Base is the model path without extension.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Loads <base>.vtx into the vertex table. A table that is there is forgotten, not freed: call FreeModel first.
 * @param base    model path without extension
 * @param noFile  nonzero: no file is looked at, the table is empty
 * @return the vertex count, 0 also when there is no file; -1 no memory; -2 the file does not open again
 */
PN10_EXPORT int32_t PN10_CALL ReadVtx(const char* base, int16_t noFile);
/**
 * Loads <base>.ndt into the node table and makes the node screen table and the reference table (10 rows).
 *
 * Tables that are there are forgotten, not freed: call FreeModel first. Sets the last node id and the last node-name
 * number, the highest whole number below 2000000000 that a name begins with. What a file ends before keeps the values
 * of the record before it.
 * @param base     model path without extension
 * @param noFile   nonzero: no file is looked at, the tables are empty
 * @param version  of the model's files; those of 10.0 carry no comparison fields, which become 0
 * @return the last node-name number, 0 for an empty file; -1 no memory, no table stays; -2 the file does not open
 */
PN10_EXPORT int32_t PN10_CALL ReadNdt(const char* base, int16_t noFile, float version);
/**
 * Loads <base>.pdt into the pipe table and makes the pipe screen table. ReadVtx, ReadNdt and the facility table come
 * first: each pipe is bound to its vertices, takes its facility's settings, hands them to its end nodes and is
 * measured.
 *
 * A pipe whose vertices are missing becomes straight (VTX_MODE 0). Sets the last pipe id (ids below 2000000000) and
 * the last group id. Tables that are there are forgotten, not freed.
 * @param base    model path without extension
 * @param defaultEquation       flow equation of pipes and facilities that name none
 * @param defaultPressureUnits  units text of nodes whose facility asks for the default; null counts as empty
 * @param noFile  nonzero: no file is looked at, the tables are empty
 * @return the last pipe id, 0 for an empty file; -1 no memory; -2 the file does not open; -100 a node reference is
 *         negative or above the node count: the pipes up to that one stand
 */
PN10_EXPORT int32_t PN10_CALL ReadPdt(const char* base, int16_t defaultEquation, const char* defaultPressureUnits,
                                      int16_t noFile);
PN10_EXPORT int32_t PN10_CALL ReadCdt(const char* base, int16_t noFile);

/**
 * Load <base>.fdt into the fitting table, or add it to the table.
 *
 * Without `append` the table already there is forgotten, not freed: call FreeFdt first.
 * @param append    nonzero: the records follow those in memory
 * @param idOffset  added to the pipe id of every record read; pass the pipe id offset of an appended model
 * @param version   a leading part of "10.0" (the empty text too): records follow a header of four bytes; any other
 *                  text: records start at the first byte. SavePipe and SaveFtg write the four bytes.
 * @return the fitting count; -1 no memory; -2 the file can't be opened (a model without fittings has none)
 */
PN10_EXPORT int32_t PN10_CALL ReadFtg(const char* base, int16_t append, int32_t idOffset, const char* version);

/* ------------------------------------------------------------------------------------------------
 * Numbers of the fields
 *
 * Each with its access (R GetXxxVal, W SetXxxVal), its type and its unit; "text 41" is a text of at most
 * 40 characters and its terminator.
 * ---------------------------------------------------------------------------------------------- */

/** Node fields, for GetNdtVal and SetNdtVal. */
typedef enum NdtField {
  NDT_NODENAME = 301,      /* RW text 41 */
  NDT_PRESSURE = 302,      /* RW float, in P_UNITS */
  NDT_P_KNOWN = 303,       /* RW uint8, 0 = known */
  NDT_P_UNITS = 304,       /* RW text 11 */
  NDT_QB_LOAD = 305,       /* RW float, in Q_UNITS */
  NDT_QB_KNOWN = 306,      /* RW int16, low byte stored, 0 = known */
  NDT_QB_DF = 307,         /* RW int16, low byte stored */
  NDT_QB_STATUS = 308,     /* RW int16, low byte stored, 0 = on */
  NDT_Q_UNITS = 309,       /* RW text 11 */
  NDT_QX_LOAD = 310,       /* RW float, in base flow units */
  NDT_QX_DF = 311,         /* RW uint8 */
  NDT_QX_STATUS = 312,     /* RW uint8, 0 = on */
  NDT_Z_COORD = 313,       /* RW float */
  NDT_T = 314,             /* RW float, in the temperature units of SetBaseCond */
  NDT_T_KNOWN = 315,       /* RW uint8, 0 = known */
  NDT_PATM = 316,          /* RW float, in the pressure units of SetBaseCond */
  NDT_VISCOSITY = 317,     /* RW float */
  NDT_SG = 318,            /* RW float, negative = gas properties not known */
  NDT_SH_RATIO = 319,      /* RW float */
  NDT_HV = 320,            /* RW float */
  NDT_X_COORD = 321,       /* RW double */
  NDT_Y_COORD = 322,       /* RW double */
  NDT_TEXT_X = 323,        /* RW double */
  NDT_TEXT_Y = 324,        /* RW double */
  NDT_TEXT_ANGLE = 325,    /* RW float, radians */
  NDT_LABEL_ON = 326,      /* RW int16 */
  NDT_COLOR = 328,         /* RW int32 */
  NDT_SYM_SIZE = 329,      /* RW float */
  NDT_SYMBOL = 330,        /* RW int16 */
  NDT_HAS_RDX = 331,       /* RW uint8 */
  NDT_REC_STATUS = 332,    /* RW int16, -1 = deleted */
  NDT_GAS_KNOWN = 333,     /* R 1.0 when SG is above 0, else 0.0 */
  NDT_QX_FIXED = 341,      /* RW float, in base flow units */
  NDT_ELEV = 345,          /* RW float, in the elevation units of SetGlobalUnits */
  NDT_HOST_BYTE_346 = 346, /* RW uint8 */
  NDT_HOST_BYTE_348 = 348, /* RW uint8 */
  NDT_PIPES = 350,         /* R live pipes at the node, counted up to 6 */
  NDT_REC_DATE = 359,      /* R text YYYY-MM-DD; W exactly nine bytes YYYYMMDD, no date stamp */
  NDT_HYD_STATUS = 360,    /* RW uint8, 0 = on */
  NDT_P_FACTOR = 362,      /* RW float */
  NDT_Q_FACTOR = 363,      /* RW float */
  NDT_BASE_PRESSURE = 364, /* R magnitude of P_FACTOR x PRESSURE, psi */
  NDT_BASE_LOAD = 365,     /* R Q_FACTOR x QB_LOAD, cubic feet per hour */
  NDT_RANKINE = 366,       /* R absolute temperature, Rankine */
  NDT_FLAG_TYPE = 367,     /* RW int16 */
  NDT_COUNT = 368,         /* RW node count, of the table, no date stamp */
  NDT_LAST_ID = 369,       /* RW last node id, of the table, no date stamp */
  NDT_LAST_NAME = 370,     /* RW last node-name number, of the table, no date stamp */
  NDT_HYD_TYPE = 371,      /* RW uint8 */
  NDT_LIVE_COUNT = 372,    /* R nodes that are not deleted, of the table */
  NDT_BALANCE = 375,       /* R magnitude of what flows in and out, in Q_UNITS; -1.0 with a load switched off */
  NDT_HILITE_DRAWN = 376,  /* RW uint8, of the screen record */
  NDT_ID = 377,            /* RW int32 */
  NDT_CMP_VALUE = 380,     /* RW float */
  NDT_CMP_MODE = 381,      /* RW uint8 */
  NDT_CMP_DIFF = 382,      /* R computed minus measured */
  NDT_CMP_PERCENT = 383,   /* R the same in percent */
  NDT_AUX = 384,           /* R int16, facility flag of the screen record */
  NDT_HOST_BYTE_385 = 385, /* RW uint8 */
  NDT_STRIDE = 397         /* R 220.0, bytes of a record in the .ndt file */
} NdtField;

/** Pipe fields, for GetPdtVal and SetPdtVal. */
typedef enum PdtField {
  PDT_ID = 1,              /* RW int32 */
  PDT_FROM_NAME = 2,       /* R text 41, NODENAME of the From node */
  PDT_TO_NAME = 3,         /* R text 41, NODENAME of the To node */
  PDT_HYD_TYPE = 4,        /* RW uint8 */
  PDT_EQUATION = 5,        /* RW int16 */
  PDT_STATUS = 6,          /* RW uint8, 0 = on */
  PDT_SIZE_TYPE = 7,       /* RW text 21 */
  PDT_SIZE_FLAG = 8,       /* RW uint8 */
  PDT_LENGTH = 9,          /* RW float, in L_UNITS */
  PDT_L_UNITS = 10,        /* RW text 11 */
  PDT_EFFICIENCY = 11,     /* RW float */
  PDT_FLOW = 12,           /* RW float, in Q_UNITS */
  PDT_Q_UNITS = 13,        /* RW text 11 */
  PDT_DP = 14,             /* RW float, in DP_UNITS */
  PDT_DP_UNITS = 15,       /* RW text 11 */
  PDT_Z_FACTOR = 16,       /* RW float */
  PDT_FACILITY = 17,       /* RW int16 */
  PDT_FTG_COUNT = 18,      /* RW uint8 */
  PDT_FTG_EQ_LENGTH = 19,  /* RW float */
  PDT_CUST_COUNT = 22,     /* RW int16 */
  PDT_TEXT_X = 23,         /* RW double */
  PDT_TEXT_Y = 24,         /* RW double */
  PDT_TEXT_ANGLE = 25,     /* RW float, radians */
  PDT_LABEL_ON = 26,       /* RW int16 */
  PDT_COLOR = 27,          /* RW int32 */
  PDT_VTX_MODE = 28,       /* RW uint8 */
  PDT_LINE_WIDTH = 29,     /* RW int16 */
  PDT_LINE_TYPE = 30,      /* RW int16, low byte stored */
  PDT_REC_STATUS = 32,     /* RW int16, -1 = deleted */
  PDT_VELOCITY = 33,       /* RW float, feet per second */
  PDT_HOST_SHORT_34 = 34,  /* RW int16 */
  PDT_INSIDE_D = 35,       /* R inside diameter in DR_UNITS, from the lookup or the size text */
  PDT_ROUGHNESS = 38,      /* R from the lookup, else ROUGHNESS; W float, ROUGHNESS */
  PDT_VOLUME = 39,         /* R line pack at base conditions, cubic feet */
  PDT_PAVE_ABS = 40,       /* R average pressure, absolute, psi */
  PDT_LINK_ID = 43,        /* RW text 21 */
  PDT_DR_UNITS = 49,       /* RW text 11 */
  PDT_P_IN = 50,           /* R PRESSURE of the inlet node, in its units */
  PDT_P_OUT = 51,          /* R PRESSURE of the outlet node, in its units */
  PDT_HOST_BYTE_58 = 58,   /* RW uint8 */
  PDT_TO_X = 59,           /* R X_COORD of the To node */
  PDT_TO_Y = 60,           /* R Y_COORD of the To node */
  PDT_FROM_X = 61,         /* R X_COORD of the From node */
  PDT_FROM_Y = 62,         /* R Y_COORD of the From node */
  PDT_TOTAL_EFF = 63,      /* R EFFICIENCY x the multiplier of the lookup row */
  PDT_REYNOLDSNO = 65,     /* RW float */
  PDT_HOOP_STRESS = 68,    /* R hoop stress, psi */
  PDT_YIELD = 69,          /* R yield strength of the lookup row in DP_UNITS */
  PDT_STRESS_RATIO = 70,   /* R hoop stress as a fraction of the yield strength */
  PDT_MAOP = 76,           /* RW float */
  PDT_FROM_NODE = 81,      /* RW int32 */
  PDT_TO_NODE = 82,        /* RW int32 */
  PDT_GROUP_ID = 83,       /* RW int32 */
  PDT_GROUP_TYPE = 84,     /* RW int16 */
  PDT_REC_DATE = 87,       /* R text YYYY-MM-DD; W exactly nine bytes YYYYMMDD, no date stamp */
  PDT_D_FACTOR = 92,       /* RW float */
  PDT_BASE_D = 93,         /* R inside diameter, inches */
  PDT_L_FACTOR = 94,       /* RW float */
  PDT_BASE_LENGTH = 95,    /* R L_FACTOR x LENGTH, feet */
  PDT_DP_FACTOR = 96,      /* RW float */
  PDT_Q_FACTOR = 97,       /* RW float */
  PDT_BASE_FLOW = 98,      /* R Q_FACTOR x FLOW, cubic feet per hour */
  PDT_FLAG_BYTE = 99,      /* RW uint8 */
  PDT_COUNT = 100,         /* RW pipe count, of the table, no date stamp */
  PDT_LAST_ID = 101,       /* RW last pipe id, of the table, no date stamp */
  PDT_CLEAR_CALC = 102,    /* W clears the reserved block, VTX_FIRST, VTX_LAST and ROUGHNESS */
  PDT_MEAN_RANKINE = 103,  /* R mean absolute temperature of both nodes, Rankine */
  PDT_LOOKUP_ROW = 104,    /* R row of SIZE_TYPE in the lookup of HYD_TYPE, -1.0 when there is none */
  PDT_VOL_UNITS = 105,     /* R factor from cubic feet, and the volume unit as text, 5 bytes */
  PDT_FIRST_VTX = 106,     /* RW int32, of the screen record */
  PDT_LAST_VTX = 107,      /* RW int32, of the screen record */
  PDT_STRIDE = 108,        /* R 280.0, bytes of a record in the .pdt file */
  PDT_XY_LENGTH = 119,     /* R float, length of the screen record; W computes it anew, value = use Z */
  PDT_STRAIGHT = 120,      /* R distance between the two nodes, map units */
  PDT_REGULATORS = 126,    /* R pipes of type 1, deleted ones too, of the table */
  PDT_XY_COLOR = 127,      /* W int32, colour of the screen record */
  PDT_HILITE_DRAWN = 128,  /* RW uint8, of the screen record */
  PDT_PAVE = 130,          /* R average pressure, gauge, psi */
  PDT_P_IN_PIPE = 131,     /* R inlet pressure in DP_UNITS */
  PDT_P_OUT_PIPE = 132,    /* R outlet pressure in DP_UNITS */
  PDT_EQ_NAME = 133,       /* R EQUATION, and its name as text, 19 bytes; no text for other codes */
  PDT_CLEAR_FLOW = 134,    /* W clears FLOW, DP, VELOCITY and host byte 154 */
  PDT_TO_Z = 136,          /* R Z_COORD of the To node */
  PDT_FROM_Z = 137,        /* R Z_COORD of the From node */
  PDT_VTX_FIRST = 139,     /* R int32, on file */
  PDT_VTX_LAST = 140,      /* R int32, on file */
  PDT_VTX_Z = 153,         /* W Z of all vertices from VTX_FIRST to VTX_LAST */
  PDT_HOST_BYTE_154 = 154, /* RW uint8 */
  PDT_CMP_VALUE = 156,     /* RW double */
  PDT_CMP_MODE = 157,      /* RW uint8 */
  PDT_CMP_DIFF = 158,      /* R computed minus measured */
  PDT_CMP_PERCENT = 159    /* R the same in percent */
} PdtField;

/** Customer fields, for GetCdtVal and SetCdtVal. */
typedef enum CdtField {
  CDT_ID = 401,             /* RW int32 */
  CDT_PIPE_LINK_ID = 402,   /* R text 21, LINK_ID of its pipe; the result is -1.0 */
  CDT_NODE_ASGN = 403,      /* RW int16 */
  CDT_UNIT_LOAD = 404,      /* RW float, in LOAD_UNITS */
  CDT_LOAD_UNITS = 405,     /* RW text 11 */
  CDT_X_COORD = 406,        /* RW double */
  CDT_Y_COORD = 407,        /* RW double */
  CDT_COLOR = 408,          /* RW int32 */
  CDT_HOST_SHORT_409 = 409, /* RW int16, symbol size */
  CDT_HOST_SHORT_410 = 410, /* RW int16, symbol number */
  CDT_HOST_SHORT_411 = 411, /* RW int16, label switch */
  CDT_TEXT_X = 412,         /* RW double */
  CDT_TEXT_Y = 413,         /* RW double */
  CDT_TEXT_ANGLE = 414,     /* RW float, radians */
  CDT_SX_COORD = 416,       /* RW double */
  CDT_SY_COORD = 417,       /* RW double */
  CDT_VTX_MODE = 418,       /* RW int16 */
  CDT_LINK_FLAG = 419,      /* RW int16 */
  CDT_LINK_CUST = 420,      /* RW int32, an ID */
  CDT_COUNT = 421,          /* RW int16 */
  CDT_LINK_ID = 422,        /* RW text 41; the read copies no terminator */
  CDT_HOST_SHORT_425 = 425, /* RW int16 */
  CDT_LOAD_MULT = 426,      /* RW float */
  CDT_LOAD_DF = 427,        /* RW int16 */
  CDT_HOST_SHORT_431 = 431, /* RW int16 */
  CDT_PIPE_REC = 433,       /* RW int32 */
  CDT_Z_COORD = 435,        /* RW float */
  CDT_HOST_SHORT_436 = 436, /* RW int16 */
  CDT_HOST_SHORT_437 = 437, /* RW int16 */
  CDT_REC_DATE = 442,       /* R text YYYY-MM-DD; W exactly nine bytes YYYYMMDD, no date stamp */
  CDT_REC_STATUS = 443,     /* RW int16, -1 = deleted */
  CDT_LOAD_FACTOR = 444,    /* RW float */
  CDT_BASE_LOAD = 445,      /* R LOAD_FACTOR x UNIT_LOAD, cubic feet per hour */
  CDT_FLAG_BYTE = 446,      /* RW uint8 */
  CDT_LAST_ID = 447,        /* RW last customer id, of the table, no date stamp */
  CDT_TABLE_COUNT = 448,    /* RW customer count, of the table, no date stamp */
  CDT_CLEAR_CALC = 449,     /* W clears the reserved value and host short 436 */
  CDT_LIVE_COUNT = 450,     /* R customers that are not deleted, of the table */
  CDT_FIRST_VTX = 451,      /* RW int32, of the screen record */
  CDT_LAST_VTX = 452,       /* RW int32, of the screen record */
  CDT_TOTAL_TEXT = 454,     /* R load of all units and LOAD_UNITS as text; the result is the load of one unit */
  CDT_UNIT_TEXT = 456,      /* R load of one unit and LOAD_UNITS as text, and the same load */
  CDT_HILITE_DRAWN = 458,   /* RW uint8, of the screen record */
  CDT_XY_COLOR = 459,       /* R int32, colour of the screen record */
  CDT_LINK_REC = 460,       /* R record of the linked customer, 0 without */
  CDT_HOST_BYTE_464 = 464,  /* RW uint8 */
  CDT_STRIDE = 497          /* R 214.0, bytes of a record in the .cdt file */
} CdtField;

/** Fitting fields, for GetFdtVal and SetFdtVal. */
typedef enum FdtField {
  FDT_NAME = 901,    /* RW text  FTG_NAME, 20 characters */
  FDT_NUM = 902,     /* RW int16 FTG_NUM */
  FDT_PIPE_ID = 903, /* RW int32 FTG_PIPE_ID, 0 = unused record */
  FDT_FLAG = 904,    /* RW int16 FTG_FLAG */
  FDT_EQL = 905,     /* RW float FTG_EQL, feet */
  FDT_STRIDE = 906,  /* R  32.0, bytes of a record on file */
  FDT_COUNT = 907    /* RW int32 fitting count, of the table */
} FdtField;

/** Fields of vertices (GetVtxVal, SetVtxVal). Access R read, W write. */
typedef enum VtxField {
  VTX_OWNER_ID = 801,   /* RW int32  VTX_OWNER, ID of the owning pipe or customer, 0 = killed */
  VTX_KIND_NO = 802,    /* RW int16  VTX_KIND */
  VTX_X_COORD = 803,    /* RW double VTX_X */
  VTX_Y_COORD = 804,    /* RW double VTX_Y */
  VTX_Z_COORD = 805,    /* RW float  VTX_Z */
  VTX_COUNT = 807,      /* RW int32  vertex count, of the table */
  VTX_HILITE_REQ = 808, /* W byte  VTX_HILITE */
  VTX_DRAWN_FLAG = 809  /* W byte  VTX_DRAWN */
} VtxField;

/* ------------------------------------------------------------------------------------------------
 * Numbered fields
 *
 * The getters return a 64-bit float and copy a text field to text; the setters truncate toward zero
 * for integer members and keep the low eight bits for byte members.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Read one numbered field of a node.
 *
 * A number comes back widened to double; a text field is copied to `text` and the result is 1.0.
 * @param node   record number, 0 to the node count; record 0 serves the fields of the table
 * @param text   receives a text field, 41 bytes suffice; not touched by a numeric field
 * @param field  one of NdtField, 301 to 397
 * @return the value in the record's own unit (PRESSURE in P_UNITS, not converted); -1.0 when node is out of
 *         range, silently, or when the field is unknown, after the message "getndt <field>"
 */
PN10_EXPORT double PN10_CALL GetNdtVal(int32_t node, char* text, int16_t field);

/**
 * Store one numbered field of a node; numbers take `value`, texts take `text`, the other one is ignored.
 *
 * Integers truncate toward zero, bytes keep the low eight bits, texts are cut at the width of the member. Then,
 * for a record with a positive REC_STATUS, REC_DATE becomes today's date, except after fields 359, 368, 369 and
 * 370. A record that the table does not have is left alone. An unknown field shows "setndt <field>".
 */
PN10_EXPORT void PN10_CALL SetNdtVal(int32_t node, int16_t field, const char* text, double value);

/**
 * Read one numbered field of a pipe, by the rules of GetNdtVal; the field is one of PdtField, 1 to 159.
 *
 * Diameters, roughness, efficiency and strengths come from the lookup row of SIZE_TYPE, pressures and temperatures
 * from the two nodes; nothing is kept between calls. An unknown field shows "getpdt <field>".
 * @param text  receives a text field; 41 bytes suffice
 */
PN10_EXPORT double PN10_CALL GetPdtVal(int32_t pipe, char* text, int16_t field);

/**
 * Store one numbered field of a pipe, by the rules of SetNdtVal; fields 87, 100 and 101 leave REC_DATE alone.
 *
 * Fields 102, 119, 134 and 153 act instead of storing. An unknown field shows "setpdt <field>".
 */
PN10_EXPORT void PN10_CALL SetPdtVal(int32_t pipe, int16_t field, const char* text, double value);

/**
 * Read one numbered field of a customer, by the rules of GetNdtVal; the field is one of CdtField, 401 to 497.
 *
 * Field 402 returns -1.0 although it copies a text, and field 422 copies its text without the terminator, so that
 * the caller passes a cleared buffer. The result is -1.0 also for a record that the table does not have.
 * An unknown field shows "getcdt <field>".
 * @param text  receives a text field; 41 bytes suffice, and for fields 454 and 456 the room of their number more
 */
PN10_EXPORT double PN10_CALL GetCdtVal(int32_t cust, char* text, int16_t field);

/**
 * Store one numbered field of a customer, by the rules of SetNdtVal; fields 442, 447 and 448 leave REC_DATE alone.
 *
 * Field 449 acts instead of storing. An unknown field shows "setcdt <field>".
 */
PN10_EXPORT void PN10_CALL SetCdtVal(int32_t cust, int16_t field, const char* text, double value);

/**
 * Read one numbered field of a fitting.
 * @param ftg    record number, 0 to the fitting count
 * @param text   receives FDT_NAME, 21 bytes suffice; not touched by the other fields
 * @param field  one of FdtField
 * @return the value, 1.0 for a text; -1.0 when ftg is out of range, silently, or when the field is unknown, after
 *         the message "getfdt <field>"
 */
PN10_EXPORT double PN10_CALL GetFdtVal(int32_t ftg, char* text, int16_t field);

/**
 * Store one numbered field of a fitting; whole numbers truncate toward zero, a text is cut at 20 characters.
 *
 * A number without a record stores nothing (FDT_COUNT goes with any that is not negative); an unknown field shows
 * "setfdt <field>".
 */
PN10_EXPORT void PN10_CALL SetFdtVal(int32_t ftg, int16_t field, const char* text, double value);

/**
 * Read one numbered field of a vertex, VTX_OWNER_ID (801) to VTX_COUNT (807), widened to double.
 *
 * @param vtx  record number; VTX_COUNT is read on any that is not negative
 * @return the value; -1.0 for a record that is not there, silently, or for an unknown number after "getvtx <field>"
 */
PN10_EXPORT double PN10_CALL GetVtxVal(int32_t vtx, int16_t field);

/**
 * Store one numbered field of a vertex. Integers truncate toward zero; vertices carry no date.
 *
 * VTX_COUNT sets the count and nothing else. A record that is not there is left alone; an unknown number shows
 * "setvtx <field>".
 */
PN10_EXPORT void PN10_CALL SetVtxVal(int32_t vtx, int16_t field, double value);

/** Place of a vertex; zeros for a record that is not there. Returns -1. */
PN10_EXPORT int32_t PN10_CALL GetVTXY(int32_t vtx, double* x, double* y, float* z);

/** Place and kind of a vertex; zeros for a record that is not there. Returns -1. */
PN10_EXPORT int32_t PN10_CALL GetVTXYType(int32_t vtx, double* x, double* y, int16_t* kind);

/** Number of records from `firstVtx` to `lastVtx` that are owned and of kind 2, 3, 5 or 7. */
PN10_EXPORT int32_t PN10_CALL GetVtxAttCount(int32_t firstVtx, int32_t lastVtx);

/* ------------------------------------------------------------------------------------------------
 * Computed values of nodes, pipes and customers
 * ---------------------------------------------------------------------------------------------- */

/**
 * Base load of a node in Q_UNITS: 0 when the node is off, times the load factor of SetDrawVars when the load is
 * known and QB_DF is set. A QB_LOAD that is not a number becomes 0 in the record. 0.0 for a bad record number.
 */
PN10_EXPORT double PN10_CALL CalcNodeQBase(int32_t node);

/**
 * External load of a node: QX_LOAD, times the load factor when QX_DF is set, plus QX_FIXED, or 0 when it is off;
 * divided by Q_FACTOR, which is not guarded against 0. 0.0 for a bad record number.
 */
PN10_EXPORT double PN10_CALL CalcNodeQExt(int32_t node);

/** Pipe ends at a node, of the pipes that are not deleted: a pipe that loops back counts twice. Wait cursor. */
PN10_EXPORT int32_t PN10_CALL GetPipeCount(int32_t node);

/**
 * The first six pipe ends at a node, in the order of the records. Wait cursor.
 *
 * All four lists have 7 elements; pipes[0] receives the count, slots 1 to 6 the entries. The point of an entry is
 * the way in which the pipe leaves the node: the vertex beside that end for a pipe with a vertex run (VTX_MODE 4),
 * else the node at its other end.
 */
PN10_EXPORT void PN10_CALL PipeConnects(int32_t node, int32_t* pipes, double* xs, double* ys, float* zs);

/**
 * The first other node that has this name, or 0: length and case count, and so do deleted nodes, whose names stay
 * taken until the next save.
 * @param node  record to leave out; 0 for a new name
 */
PN10_EXPORT int32_t PN10_CALL CkNodeName(int32_t node, const char* name);

/**
 * Line pack of a pipe at base conditions, cubic feet, by the law of real gases: the volume of the pipe times P / Pb,
 * Tb / T and 1 / Z, with the average absolute pressure (field 40), the mean temperature (field 103) and the inside
 * diameter in inches (field 93). 0 when Z_FACTOR or the temperature is 0, or for a bad record number.
 * @param baseT  base temperature, Rankine; 0 acts as 1
 * @param baseP  base pressure, psi absolute; 0 acts as 1
 */
PN10_EXPORT double PN10_CALL CalcVolPno(int32_t pipe, float baseT, float baseP);

/**
 * Equivalent length of a fitting of the fitting lookup at another diameter than its own.
 *
 * k * (diameter / d0)^e, where the row gives the length k at the diameter d0 and e is the exponent of the diameter
 * in the flow equation (5 for an equation without one of its own).
 * @param diameter  inches, as d0
 * @param equation  flow equation code
 * @param flutRow   row of the fitting lookup
 * @return feet, as k; -1.0 d0 is 0, -2.0 k is 0, -3.0 the row is above the lookup, -4.0 the row is below 1
 */
PN10_EXPORT float PN10_CALL CalcEqLFtgNo(float diameter, int16_t equation, int16_t flutRow);

/* ------------------------------------------------------------------------------------------------
 * Lookup queries
 *
 * The getters return numbers widened to double; a text field is copied to `text` and gives 1.0. "In its units" is
 * the stored base value divided by the factor of the row's units. A bad row is silent; an unknown field shows
 * "getplut <field>" and so on, and gives the result of a bad row. After FreeLut only the count is readable.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Search a lookup by its key.
 *
 * Pipe sizes are searched in one of four ranges of the sorted index, by the first 40 characters; of equal keys there
 * the first in the index counts. The others are scanned for the whole key, the empty row behind the last included.
 * @param countMatches  0: the row number of the first match is wanted; else how many match
 * @return row number or number of matches; 0 for none, and for an empty lookup
 */
PN10_EXPORT int32_t PN10_CALL FindPLutRno(const char* key, int16_t countMatches);
PN10_EXPORT int32_t PN10_CALL FindRLutRno(const char* key, int16_t countMatches);
PN10_EXPORT int32_t PN10_CALL FindFLutRno(const char* key, int16_t countMatches);
PN10_EXPORT int32_t PN10_CALL FindVLutRno(const char* key, int16_t countMatches);
PN10_EXPORT int32_t PN10_CALL FindCLutRno(const char* key, int16_t countMatches);
PN10_EXPORT int32_t PN10_CALL FindWLutRno(const char* key, int16_t countMatches);

/** Fields of a pipe size. */
typedef enum PLutField {
  PLUT_ROW = 0,        /* row of `text` */
  PLUT_FIELD_1 = 1,    /* int16, the host's */
  PLUT_INSIDE_D = 2,   /* float, inches */
  PLUT_FIELD_3 = 3,    /* int16, the host's */
  PLUT_FIELD_4 = 4,    /* int16, the host's */
  PLUT_FIELD_5 = 5,    /* float, the host's */
  PLUT_NAME = 6,       /* text 41 */
  PLUT_EFFICIENCY = 7, /* float, a multiplier */
  PLUT_ROUGHNESS = 8,  /* float, inches */
  PLUT_OUTSIDE_D = 9,  /* float, inches */
  PLUT_FIELD_10 = 10,  /* int16, the host's */
  PLUT_WALL = 11,      /* float, inches */
  PLUT_YIELD = 12,     /* float, psi */
  PLUT_COUNT = 13,     /* number of rows */
  PLUT_MATCHES = 14,   /* rows of the key `text` */
  PLUT_FIELD_16 = 16   /* float, the host's */
} PLutField;

/** Fields of a fitting. */
typedef enum FLutField {
  FLUT_ROW = 0,                /* row of `text` */
  FLUT_COUNT = 1,              /* number of rows and one */
  FLUT_REF_D_IN_UNITS = 3,     /* reference diameter in its units */
  FLUT_EQ_LENGTH_IN_UNITS = 4, /* equivalent length in its units */
  FLUT_NAME = 5,               /* text 41 */
  FLUT_FIELD_6 = 6,            /* int16, the host's */
  FLUT_FIELD_7 = 7,            /* float, the host's */
  FLUT_FIELD_8 = 8,            /* float, the host's */
  FLUT_TEXT_9 = 9,             /* text 21 */
  FLUT_FIELD_10 = 10,          /* int16, the host's */
  FLUT_REF_D = 11,             /* float, inches; type 55: pressure drop, psi */
  FLUT_EQ_LENGTH = 12,         /* float, feet; types 52 to 54: a coefficient; type 55: 0 */
  FLUT_D_UNITS = 13,           /* text 11 */
  FLUT_L_UNITS = 14,           /* text 11 */
  FLUT_ROUGHNESS = 15,         /* float, inches */
  FLUT_MATCHES = 16,           /* rows of the key `text` */
  FLUT_TEXT_17 = 17,           /* text 21 */
  FLUT_EFFICIENCY = 18,        /* float, a multiplier */
  FLUT_TYPE = 19,              /* int16 */
  FLUT_FIELD_20 = 20,          /* int16, device code of its picture */
  FLUT_FIELD_21 = 21,          /* float, the host's */
  FLUT_DESCRIPTION = 22        /* text 81 */
} FLutField;

/** Fields of a regulator. */
typedef enum RLutField {
  RLUT_ROW = 0,                /* row of `text` */
  RLUT_COUNT = 1,              /* number of rows and one */
  RLUT_SET_VALUE_IN_UNITS = 2, /* set pressure in its units */
  RLUT_P_UNITS = 3,            /* text 11 */
  RLUT_C0 = 4,                 /* float, coefficient */
  RLUT_SET_VALUE = 5,          /* float, psi */
  RLUT_CAPACITY = 6,           /* computed, see GetRLutVal */
  RLUT_EQUATION = 7,           /* int16 */
  RLUT_C0_AGAIN = 8,           /* float, coefficient */
  RLUT_FIELD_9 = 9,            /* int16, the host's */
  RLUT_NAME = 10,              /* text 41 */
  RLUT_MATCHES = 11,           /* rows of the key `text` */
  RLUT_FIELD_13 = 13,          /* 0 */
  RLUT_FIELD_14 = 14,          /* float x 100 */
  RLUT_UNITS = 15              /* text 11 */
} RLutField;

/** Fields of a valve. */
typedef enum VLutField {
  VLUT_ROW = 0,     /* row of `text` */
  VLUT_COUNT = 1,   /* number of rows and one */
  VLUT_FIELD_2 = 2, /* int16, the host's */
  VLUT_NAME = 3,    /* text 41 */
  VLUT_MATCHES = 4, /* rows of the key `text` */
  VLUT_FIELD_6 = 6, /* 0 */
  VLUT_FIELD_7 = 7  /* int16, kind of its picture */
} VLutField;

/** Fields of a well. */
typedef enum WLutField {
  WLUT_ROW = 0,     /* row of `text` */
  WLUT_COUNT = 1,   /* number of rows and one */
  WLUT_FIELD_2 = 2, /* float, the host's */
  WLUT_FIELD_3 = 3, /* float, the host's */
  WLUT_FIELD_4 = 4, /* int16, the host's */
  WLUT_NAME = 5,    /* text 21 */
  WLUT_MATCHES = 6, /* rows of the key `text` */
  WLUT_FIELD_8 = 8  /* 0 */
} WLutField;

/** Fields of a compressor. */
typedef enum CLutField {
  CLUT_ROW = 0,                /* row of `text` */
  CLUT_COUNT = 1,              /* number of rows and one */
  CLUT_FUEL_RATE_IN_UNITS = 2, /* fuel rate in its units */
  CLUT_FUEL_RATE = 3,          /* float, times the factor of its units */
  CLUT_FUEL_UNITS = 4,         /* text 11 */
  CLUT_POWER_UNITS = 5,        /* text 11 */
  CLUT_FIELD_6 = 6,            /* float, the host's */
  CLUT_POWER = 8,              /* computed, see GetCLutVal */
  CLUT_FUEL_USE = 9,           /* computed, see GetCLutVal */
  CLUT_POWER_NAME = 10,        /* text 5: "Cfh", "MCfh" or "kWh" by the fuel units; else `text` is left alone */
  CLUT_FIELD_11 = 11,          /* int16, the host's */
  CLUT_NAME = 12,              /* text 41 */
  CLUT_MATCHES = 13,           /* rows of the key `text` */
  CLUT_FIELD_15 = 15           /* 0 */
} CLutField;

/**
 * Read one field of a pipe size.
 *
 * @return the value; 0.0 for a row below 0 or above the count and for an unknown field. The fields 0, 13 and 14
 *         do not look at the row, as long as it is not negative and the lookup not empty.
 */
PN10_EXPORT double PN10_CALL GetPLutVal(int16_t row, char* text, int16_t field);

/** Read one field of a fitting. Returns -1.0 for a row below 0 or above the count, whatever the field. */
PN10_EXPORT double PN10_CALL GetFLutVal(int32_t row, char* text, int16_t field);

/**
 * Read one field of a regulator. Returns -1.0 for a row below 0 or above the count, whatever the field.
 *
 * RLUT_CAPACITY: `row` is a pipe record and `text` holds the regulator's row as digits; the capacity in base cubic
 * feet per hour at the state of the pipe, by the calculation library; 0 without it, -1.0 when pipe or row is not
 * there.
 */
PN10_EXPORT double PN10_CALL GetRLutVal(int32_t row, char* text, int16_t field);

/** Read one field of a valve or a well. Returns -1.0 for a row below 0 or above the count, whatever the field. */
PN10_EXPORT double PN10_CALL GetVLutVal(int32_t row, char* text, int16_t field);
PN10_EXPORT double PN10_CALL GetWLutVal(int32_t row, char* text, int16_t field);

/**
 * Read one field of a compressor. Returns -1.0 for a row below 0 or above the count, whatever the field.
 *
 * CLUT_POWER and CLUT_FUEL_USE: `row` is a pipe record and `text` the compressor's name; horsepower at the state of
 * the pipe by the calculation library, and that times the fuel rate (times the factor of its units once more); 0
 * without the library or for a name that is not found, -1.0 when the pipe is not there.
 */
PN10_EXPORT double PN10_CALL GetCLutVal(int32_t row, char* text, int16_t field);

/** Address of row 0 of a lookup, 0 without rows; valid until it is loaded again or released. */
PN10_EXPORT intptr_t PN10_CALL GetPLutAddress(void);
PN10_EXPORT intptr_t PN10_CALL GetFLutAddress(void);
PN10_EXPORT intptr_t PN10_CALL GetRLutAddress(void);
PN10_EXPORT intptr_t PN10_CALL GetVLutAddress(void);
PN10_EXPORT intptr_t PN10_CALL GetWLutAddress(void);
PN10_EXPORT intptr_t PN10_CALL GetCLutAddress(void);

/**
 * Address of entry 0 of the pipe size index, a PLutIdx; entries 1 to the count are sorted by key.
 *
 * From this call on the host may write into the entries; every search then goes through its range of them, which is
 * slower than before.
 */
PN10_EXPORT intptr_t PN10_CALL GetPPTypeAddress(void);

/** Average pressure of two absolute pressures, by the calculation library; 0 without it. */
PN10_EXPORT float PN10_CALL CalcPave(float absPressureA, float absPressureB);

/* ------------------------------------------------------------------------------------------------
 * Units, number formats, text helpers
 * ---------------------------------------------------------------------------------------------- */

/**
 * Factor from a unit to the base unit of its family: feet, inches, psi, cubic feet per hour, Btu per cubic foot.
 *
 * @param unitName      name in the user's words, any case; its first 11 characters count
 * @param heatingValue  divides the factors of power units among the flows, else ignored
 * @param family        key of the family: "LUS" length, "DUS" diameter, "E" efficiency, "PUS" pressure, "Q" flow,
 *                      "T" temperature code, "FUEL", "VIS", "VEL", "HV"
 * @return the factor; 1.0 for a unit outside the family (3.0 for T, 0.0 for FUEL), 0.0 for another family
 */
PN10_EXPORT float PN10_CALL GetUnitFactor(const char* unitName, float heatingValue, const char* family);

/** Absolute temperature in Rankine of `t` in the temperature units of SetBaseCond. */
PN10_EXPORT double PN10_CALL CalcRankine(float t);

/**
 * Writes a printf format with the decimals of entry `index` (0 to 31) of the digit table, as "%0.2f"; "%0.0f"
 * for an entry of 0, outside the table, or before the host passed one. The buffer needs 16 bytes.
 */
PN10_EXPORT void PN10_CALL GetNumFormat(int16_t index, char* buffer);

/** Upper-cases the letters A to Z in place; returns the length. */
PN10_EXPORT int32_t PN10_CALL StrUpper(char* text);

/** Removes white space at the end, in place. */
PN10_EXPORT void PN10_CALL TrimRight(char* text);

/** The same on a field of exactly 20 bytes, terminated within its 21. */
PN10_EXPORT void PN10_CALL TrimRight20(char* text20);

/* ------------------------------------------------------------------------------------------------
 * Geometry
 * ---------------------------------------------------------------------------------------------- */

/** Bearing from the first point to the second: radians counter-clockwise from +X, 0 for coinciding points. */
PN10_EXPORT double PN10_CALL GetBrg(double x1, double y1, double x2, double y2);
/**
 * The point at a bearing and a distance.
 *
 * A bearing beyond one turn is reduced; below minus one turn it comes back reflected, so that -7 acts as +7.
 * @return -1 always
 */
PN10_EXPORT int32_t PN10_CALL GetXY(double x, double y, double bearing, double distance, double* outX, double* outY);
/** Inverse cosine and sine; 0 for arguments beyond 1 in magnitude. */
PN10_EXPORT double PN10_CALL CalcACos(double x);
PN10_EXPORT double PN10_CALL CalcASin(double x);
/**
 * The circle of an arc through two ends. The vertex holds the radius (VTX_X) and the included angle (VTX_Y).
 *
 * @param turn           1, or any other value for the other side; the arc runs counter-clockwise from startBrg
 *                       to endBrg
 * @param radius         the radius in single precision; startBrg, endBrg radians; includedAngle as stored
 * @param midX           with midY and midZ the middle of the arc; any out argument may be null
 * @return 0; -1 and nothing written when the vertex is outside the table, or in the isometric view when the ends
 *         coincide within the tolerance of SetGlobalUnits
 */
PN10_EXPORT int32_t PN10_CALL CalcArcGeom(int32_t vtx, int16_t turn, float z1, float z2, double x1, double y1,
                                          double x2, double y2, double* centreX, double* centreY, double* radius,
                                          float* startBrg, float* endBrg, double* includedAngle, double* midX,
                                          double* midY, float* midZ);
/**
 * The same circle for a radius and an angle that are given. The Z arguments have no effect.
 * @return 0; -1 and nothing written when the ends coincide outside the isometric view
 */
PN10_EXPORT int32_t PN10_CALL CalcArcCxy(int16_t turn, float radius, float includedAngle, double x1, double y1,
                                         float z1, double x2, double y2, float z2, double* centreX, double* centreY,
                                         float* startBrg, float* endBrg);
/** Middle of an arc pipe. @return -1 when the pipe is no arc, else 0, also when its circle is refused */
PN10_EXPORT int32_t PN10_CALL CalcArcMidXY(int32_t pipe, double* midX, double* midY, float* midZ);
/**
 * All of a pipe's arc: vertex number, centre, Z of the vertex, bearings, radius, included angle in radians and in
 * whole degrees. Centre and bearings stay unwritten when CalcArcCxy refuses. @return -1 always
 */
PN10_EXPORT int32_t PN10_CALL GetArc(int32_t pipe, int32_t* vtx, double* centreX, double* centreY, float* vtxZ,
                                     float* startBrg, float* endBrg, float* radius, float* includedAngle,
                                     int32_t* wholeDegrees);
/**
 * Length of a pipe along its path.
 *
 * In model units times a positive length factor of SetGlobalUnits; in feet on the sphere when the factor is
 * negative (longitude and latitude in degrees; haversine, mean radius 6371009 m).
 * @param useZ  0 sets both ends to Z 0; the vertices of a polyline keep theirs
 * @return 0 for VTX_MODE 3 and for a pipe that is not there
 */
PN10_EXPORT float PN10_CALL CalcPipeLength(int32_t pipe, int16_t useZ);
/** The vertex at the far end of the segment that holds a polyline's middle; one past the run in the last segment. */
PN10_EXPORT int32_t PN10_CALL GetPolyMidVtx(int32_t pipe);
/** Z of a pipe's label: the mean over the segment of the middle, or of the two nodes. */
PN10_EXPORT float PN10_CALL GetPipeTextZ(int32_t pipe);
/**
 * Device points at a bearing (radians) and a distance from an origin, truncated toward zero.
 *
 * GetIsoDevXY projects in the isometric view; GetViewDevXY does so too and with geoFlag takes the picture Y in the
 * geographic view; GetPolarXY truncates the point without mapping it to the device.
 */
PN10_EXPORT void PN10_CALL GetIsoDevXY(double x, double y, float bearing, float distance, float z, int32_t* devX,
                                       int32_t* devY);
PN10_EXPORT void PN10_CALL GetDevXY(double x, double y, float bearing, float distance, int32_t* devX, int32_t* devY);
PN10_EXPORT DevPair PN10_CALL GetViewDevXY(double x, double y, float bearing, float distance, float z, int16_t geoFlag);
PN10_EXPORT DevPair PN10_CALL GetDevXYPair(double x, double y, float bearing, float distance);
PN10_EXPORT DevPair PN10_CALL GetPolarXY(double x, double y, float bearing, float distance);
/** Floor as a 32-bit integer, held at its limits; floor and ceiling as doubles. */
PN10_EXPORT int32_t PN10_CALL FloorLong(double value);
PN10_EXPORT double PN10_CALL CalcFloor(double value);
PN10_EXPORT double PN10_CALL CalcCeil(double value);

/* ------------------------------------------------------------------------------------------------
 * Isometric view and geographic scale
 * ---------------------------------------------------------------------------------------------- */

/**
 * Distance in feet between two points in degrees, X longitude and Y latitude, by the haversine rule.
 * @param z1  heights in metres; their mean adds to the earth radius of 6371009 m
 */
PN10_EXPORT double PN10_CALL CalcGreatCircleDist(double x1, double y1, double x2, double y2, float z1, float z2);
/** A distance in feet as degrees of a great circle at height z in feet, and back. */
PN10_EXPORT double PN10_CALL CalcLatLonDist(double distance, float z);
PN10_EXPORT double PN10_CALL CalcDistLatLon(double degrees, float z);
/**
 * Picture Y of a latitude: the spacing of web map tiles on an axis in degrees. The middle latitude of the window
 * stays where it is.
 * @param winX1  window: left, top, right, bottom in degrees
 * @param zoom   zoom level of the tiles, 256 pixels around the earth at level 0
 * @return -99999999.0 when the middle of the window lies beyond a pole
 */
PN10_EXPORT double PN10_CALL CalcGeoY(double latitude, double winX1, double winY1, double winX2, double winY2,
                                      int16_t zoom);
/** The same with the geographic window of SetPNGDIScale and the zoom of SetDrawVars. */
PN10_EXPORT double PN10_CALL CalcGeoY_(double latitude);
/** Works out the tile scale of the world window. @return 1; 65535 for a window without a picture */
PN10_EXPORT int32_t PN10_CALL SetGeoYVars(void);
/** The latitude of a picture Y, the inverse of CalcGeoY; -99999999.0 as there. */
PN10_EXPORT double PN10_CALL CalcLatFromPictY(double pictY, double winX1, double winY1, double winX2, double winY2,
                                              int16_t zoom);
/** Isometric picture of a model point: X' = (X + Y) * 0.8660253882408142, Y' = (Y - X) * 0.5 + Z. */
PN10_EXPORT void PN10_CALL CalcIsoXY(double x, double y, float z, double* isoX, double* isoY);
/** The model point of an isometric picture point whose Z is known. */
PN10_EXPORT void PN10_CALL CalcXYIso(double isoX, double isoY, float z, double* x, double* y);
/** A direction as drawn in the isometric view, in tenths of a degree (truncated) and in radians. */
PN10_EXPORT int16_t PN10_CALL CalcIsoDeg(float tenthsOfDegree);
PN10_EXPORT float PN10_CALL CalcIsoRad(float radians);

/* ------------------------------------------------------------------------------------------------
 * Search
 *
 * Results are record numbers, 0 when nothing is found; tolerances are inclusive; deleted records are skipped.
 * ---------------------------------------------------------------------------------------------- */

/**
 * The node whose symbol the point lies on.
 *
 * @param x, y, z  model point; the distance is 3-D
 * @return the last node in record order whose own radius reaches the point, within a square of the default radius
 * around it (larger symbols are clipped by that square); 0 for none
 */
PN10_EXPORT int32_t PN10_CALL FindNodeClose(double x, double y, float z);
/** The first node within `tolerance` model units of the point, measured in 3-D when `threeD` is nonzero; 0 for none. */
PN10_EXPORT int32_t PN10_CALL FindNodeSnap(double x, double y, float z, float tolerance, int16_t threeD);
/** The first node within `tolerance` of a point of the picture plane: projected when the isometric flag is set; 0 for
 * none. */
PN10_EXPORT int32_t PN10_CALL FindNodeSnapPix(double x, double y, float tolerance);
/** The first other node within `tolerance` of node `node`, in 2-D; 0 for none. */
PN10_EXPORT int32_t PN10_CALL FindNodeFuzzyRno(int32_t node, float tolerance);
/** The last node in record order within `tolerance` of the point, in 2-D: of coincident nodes the newest; 0 for none.
 */
PN10_EXPORT int32_t PN10_CALL FindNodeFuzzy(double x, double y, float tolerance);
/** The first node within `tolerance` of each of two points, in one pass; 0 where there is none. One node may answer
 * both. Always returns 0. */
PN10_EXPORT int32_t PN10_CALL FindNodeFuzzy2x(double x1, double y1, double x2, double y2, float tolerance,
                                              int32_t* node1, int32_t* node2);
/**
 * A node by its name, without regard to case; white space at the end of a stored name does not count.
 *
 * @param upperName   text in upper case, trimmed, `nameLength` bytes long
 * @param startNode   first record looked at; the rows before it are looked at last
 * @param partial     0: the whole name; otherwise any name that contains the text
 * @return the first match, 0 for none
 */
PN10_EXPORT int32_t PN10_CALL FindNodeByName(const char* upperName, int32_t nameLength, int32_t startNode,
                                             int16_t partial);
/** The first node with this `ID`; 0 for none. */
PN10_EXPORT int32_t PN10_CALL FindNodeByID(int32_t id);
/** The first pipe with this `ID`; 0 for none. */
PN10_EXPORT int32_t PN10_CALL FindPipeByID(int32_t id);
/** The first pipe whose end nodes carry these two names, whole and as stored, in either order; 0 for none. */
PN10_EXPORT int32_t PN10_CALL FindPipeByNodeName(const char* nodeName1, const char* nodeName2);
/** A pipe by its external identifier; text, start row and partial flag as in FindNodeByName. */
PN10_EXPORT int32_t PN10_CALL FindPipeByLinkID(const char* upperText, int32_t startPipe, int16_t partial);
/**
 * The pipe closest to a point of the picture plane.
 *
 * @param distance      in: the search radius; out: the distance of the hit in single precision, or the radius
 * @param activeOnly    nonzero: pipes with the facility flag Active alone
 * @param drawnOnly     nonzero: pipes that the last picture really drew
 * @param withLabel     nonzero: the label anchor counts as part of the pipe
 * @param excludedNode  pipes at this node are left out; 0 for none
 * @return the closest pipe, of equal ones the first; 0 for none within the radius
 */
PN10_EXPORT int32_t PN10_CALL FindPipeXY(double x, double y, float* distance, int16_t activeOnly, int16_t drawnOnly,
                                         int16_t withLabel, int32_t excludedNode);
/**
 * The first pipe that lies exactly here: its From node, To node and vertices within `tolerance` of the given points.
 *
 * The ends are taken in their order. A polyline needs as many vertices as `vtxCount`, from element 0 of both lists.
 * @return the pipe, 0 for none
 */
PN10_EXPORT int32_t PN10_CALL FindPipeByLocation(double fromX, double fromY, float fromZ, double toX, double toY,
                                                 float toZ, const double* vtxXs, const double* vtxYs, int32_t vtxCount,
                                                 float tolerance);
/** The pipe (type Pipe, active) that the point projects onto within `tolerance`, nearest first, ties to the later one;
 * 0 for none. An arc that has no circle ends the scan. */
PN10_EXPORT int32_t PN10_CALL FindPipeClosePno(double x, double y, float tolerance);
/**
 * The middle of pipe 1, when the point lies within `tolerance` of it. Only record 1 is looked at.
 *
 * @param midX, midY, midZ  receive the middle; not touched without a hit
 * @return 1 when the walk along a polyline ended early, otherwise 0: the out arguments tell of a hit
 */
PN10_EXPORT int32_t PN10_CALL FindPipeCloseMid(double x, double y, float tolerance, double* midX, double* midY,
                                               float* midZ);
/** Distance of a point from a segment by bearings; 9999999.0 when it lies more than 1 percent of the length beyond an
 * end. */
PN10_EXPORT double PN10_CALL CalcSegDist(double x1, double y1, double x2, double y2, double px, double py);

/** The first customer, not deleted, with this ID, or 0. Wait cursor. */
PN10_EXPORT int32_t PN10_CALL FindCustByID(int32_t id);

/* ------------------------------------------------------------------------------------------------
 * Trace
 * ---------------------------------------------------------------------------------------------- */

/**
 * Traces the network from a node or a pipe as the control file under the data path says.
 *
 * Mode 0 reads "pntrace.ini" and writes the selected files trace.pip, trace.cst, trace.vlv, trace.reg, trace.sum; any
 * other mode reads "traceup.ini" and fills `pipes`. Traced pipes, and customers when the file asks for them, are
 * recoloured in their screen records and marked; colours of two traces blend on what both reach.
 * @param startNode, startPipe  where the trace begins; the start kind of the control file tells which
 * @param stopNode              a flow trace does not pass it, and lists the main route back from it; 0 for none
 * @param pipes                 room for all pipes and two more; slot 0 receives the number of entries. What does not
 * fit is not written. Null in mode 0
 * @param keepColor             nonzero: a repeat over pipes with a mark takes the trace's own colour as its mark
 * @return the number of pipes traced, the start pipe included; -1 no control file or no memory, -2 it ends at its first
 *         line or an output file can't be written, -3, -4 it ends at its second or a later line, -6 no memory
 */
PN10_EXPORT int32_t PN10_CALL CalcSystemTrace(int32_t startNode, int32_t stopNode, int32_t startPipe, int16_t mode,
                                              int32_t* pipes, int16_t keepColor);

/* ------------------------------------------------------------------------------------------------
 * Facility settings, flags and colours
 *
 * The flags Display, Report, Aux and Active of a facility are copied to its pipes and united at their end nodes;
 * customers ask their pipe. Record numbers without a slot do nothing, and their flags and colours read as 0.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Copy the flags of its facility to a pipe, as ReadPdt does.
 *
 * With a row: both end nodes are to be drawn anew, and a negative EQUATION becomes minus that of the row, or minus
 * `defaultEquation` when the row has none. Without one: FACILITY becomes 0, all flags 1, and a negative EQUATION
 * `defaultEquation` itself.
 */
PN10_EXPORT void PN10_CALL SetPipeFacFlags(int32_t pipe, int16_t defaultEquation);

/**
 * Add the flags of a pipe to its end nodes, as ReadPdt does; a zero flag changes nothing.
 *
 * A node whose PRESSURE is below 0 takes the pressure units of the facility, or `defaultPressureUnits` when these
 * begin with "Default".
 */
PN10_EXPORT void PN10_CALL SetNodeFacFlags(int32_t pipe, int32_t fromNode, int32_t toNode,
                                           const char* defaultPressureUnits);

/** Display (field 3) or Active (field 6) of a facility; 1 when it has no row, and for every other field. */
PN10_EXPORT int32_t PN10_CALL GetFacFlag(int32_t facNo, int16_t field);

/** A flag of a pipe, or of a node. */
PN10_EXPORT int32_t PN10_CALL GetFacActivePipe(int32_t pipe);
PN10_EXPORT int32_t PN10_CALL GetFacDisplayPipe(int32_t pipe);
PN10_EXPORT int32_t PN10_CALL GetFacReportPipe(int32_t pipe);
PN10_EXPORT int32_t PN10_CALL GetFacActiveNode(int32_t node);
PN10_EXPORT int32_t PN10_CALL GetFacDisplayNode(int32_t node);
PN10_EXPORT int32_t PN10_CALL GetFacReportNode(int32_t node);

/** A flag of the pipe of a customer, 1 for an untapped one. */
PN10_EXPORT int32_t PN10_CALL GetFacActiveCust(int32_t cust);
PN10_EXPORT int32_t PN10_CALL GetFacReportCust(int32_t cust);

/** The Display flag of the pipe of a customer, 0 for an untapped one. */
PN10_EXPORT int32_t PN10_CALL GetFacDisplayCust(int32_t cust);

/** Set Report, Aux and Active of a node to 1; Display stays. */
PN10_EXPORT void PN10_CALL SetFacNodeDflt(int32_t node);

/** Copy the four flags of a pipe to a node. */
PN10_EXPORT void PN10_CALL SetFacNodePipe(int32_t pipe, int32_t node);

/** Copy the four flags of a pipe to another. */
PN10_EXPORT void PN10_CALL CopyFacPipe(int32_t sourcePipe, int32_t targetPipe);

/**
 * Set one flag of every pipe of a facility; the row itself and the nodes stay.
 *
 * @param flag   0 Display (its low byte is kept), 1 Report, 2 Aux, 3 Active
 * @return 0
 */
PN10_EXPORT int32_t PN10_CALL SetPipeFacSettings(int32_t facNo, int16_t flag, int16_t value);

/**
 * Refresh a range of pipes from the facility table, and their end nodes.
 *
 * @param firstPipe, lastPipe   the range, both included
 * @param defaultEquation       as SetPipeFacFlags takes it
 * @param defaultPressureUnits  as SetNodeFacFlags takes it
 * @param recompute  0: both end nodes take the flags of the pipe; else they are united anew from the first six pipe
 *                   ends at each node, deleted pipes aside
 * @return 0
 */
PN10_EXPORT int32_t PN10_CALL ResetPipeFacSettings(int32_t firstPipe, int32_t lastPipe, int16_t defaultEquation,
                                                   const char* defaultPressureUnits, int16_t recompute);

/** Refresh Display and Active of all texts and graphics; texts of facility 30003 are always shown. Returns 0. */
PN10_EXPORT int32_t PN10_CALL ResetFacSettings(void);

/**
 * Resolve colour, line type and line width of a pipe into its screen record.
 *
 * COLOR: 0 or more is the colour; -1 asks for PipeColorMode of ViewOpts, -2 for the colour of its size, -3 for that
 * of its facility. Of what asks, a plain pipe that is off takes the off colour, and so does every element that is off.
 * LINE_TYPE, LINE_WIDTH: 0 asks for the default of ViewOpts, 98 for the facility (a width counts one more), 99 for
 * the size; a default may itself be 98 or 99.
 */
PN10_EXPORT void PN10_CALL SetPipeColor(int32_t pipe);

/** SetPipeColor for every active pipe with SIZE_FLAG whose COLOR is negative. */
PN10_EXPORT void PN10_CALL ResetPipeColors(void);

/**
 * The colour that a record with these values would get, without a look at the model.
 *
 * Not the rules of SetPipeColor: elements always get ElemColor, -1 gives PipeColor whatever the mode, a facility
 * without a row gives 0.
 */
PN10_EXPORT int32_t PN10_CALL GetPipeColor(int32_t storedColor, int16_t hydType, int32_t facNo, const char* sizeType);

/** The stored colour, or the default of ViewOpts when it is negative. */
PN10_EXPORT int32_t PN10_CALL GetNodeColor(int32_t storedColor);
PN10_EXPORT int32_t PN10_CALL GetCustColor(int32_t storedColor);

/**
 * Store the screen colour of a pipe and clear its trace.
 *
 * @param pipeColor  for a pipe or fitting
 * @param elemColor  for every other element
 * @param resolve    nonzero: SetPipeColor instead of these two
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL SetColorPXY(int32_t pipe, int32_t pipeColor, int32_t elemColor, int16_t resolve);

/** Screen colour of a pipe, a node or a customer. */
PN10_EXPORT int32_t PN10_CALL GetColorPXY(int32_t pipe);
PN10_EXPORT int32_t PN10_CALL GetColorNXY(int32_t node);
PN10_EXPORT int32_t PN10_CALL GetColorCXY(int32_t cust);

/** Store the screen colour of a node; a negative one stores the default of ViewOpts. Returns 1. */
PN10_EXPORT int32_t PN10_CALL SetColorNXY(int32_t node, int32_t color);

/** Store the screen colour of a customer likewise, and clear its trace. Returns 1. */
PN10_EXPORT int32_t PN10_CALL SetColorCXY(int32_t cust, int32_t color);

/** Store the colour of every graphic text, under the wait cursor. Returns 1. */
PN10_EXPORT int32_t PN10_CALL SetAllTextColor(int32_t color);

/* ------------------------------------------------------------------------------------------------
 * Draw
 *
 * On every repaint: SetDrawVars, SetPNGDIScale, DrawPict, in this order. The three option records stay
 * with the host and must live until the next SetDrawVars.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Describes the device and the options of the pictures to come.
 *
 * The option records are read on every paint, never copied and never freed; null stands for a record of zeros.
 * @param devMode     0 screen, 1 print, 2 print through a reduced raster
 * @param dc          target of all painting; the host's, as are the windows
 * @param drawWindow  window that is updated while a paint runs
 * @param loadFactor  diversity factor of node and customer loads
 * @param keyWindow   window whose keyboard messages can cancel a paint
 * @param singleNode  the only node painted while the node pass is off, 0 none; singleCust likewise
 * @param isoFlag     nonzero: isometric view
 * @param projection  1 geographic, 2 plain without special handling, else by isoFlag
 * @param zoom        zoom level of the geographic view
 * @param mapScale    the host's scale number, compared with the zoom limits of ViewOpts
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL SetDrawVars(int16_t devMode, HDC dc, HWND drawWindow, float loadFactor,
                                          const PlotOpts* plotOpts, const ViewOpts* viewOpts, const UnitOpts* unitOpts,
                                          HWND keyWindow, int32_t singleNode, int32_t singleCust, int16_t isoFlag,
                                          int16_t projection, int16_t zoom, double mapScale);
/** Sets the isometric flag alone; the mapping of pictures stays as it is. @return 1 */
PN10_EXPORT int32_t PN10_CALL SetIso(int16_t isoFlag);
/** Stores a value that nothing reads; the device mode is that of SetDrawVars. @return 1 */
PN10_EXPORT int32_t PN10_CALL SetDev(int16_t value);
/**
 * Sets the window on the world and the scale. SetDrawVars comes first, since PlotOpts is read here.
 *
 * @param x0             world window: left, top (the larger Y), right, bottom
 * @param devWidth       with devHeight the device size in device units
 * @param minPixels      shortest chord and twice the shortest pipe, in device units; see PlotOpts.ShortPipeSkip
 * @param displayHeight  height of the window in display units (inches, for one)
 * @param geoX1          geographic window, in the order of CalcGeoY
 * @return -1
 */
PN10_EXPORT int32_t PN10_CALL SetPNGDIScale(double x0, double y0, double x1, double y1, int32_t devWidth,
                                            int32_t devHeight, float minPixels, float displayHeight, double geoX1,
                                            double geoY1, double geoX2, double geoY2);
/**
 * Paints ranges of all tables: pipes, nodes, customers, text, user graphics, in this order.
 *
 * Erases nothing and paints no background. A range whose first or last record is 0 is skipped.
 * @param clearHilite     nonzero: take selections and grips away from all that is painted
 * @param recolourPipes   nonzero: resolve colours anew; set to 0 by a pass that ran to its end
 * @param linesOnly       nonzero: pipes without devices, arrows and vertex marks
 * @return -1, also when the user cancelled with Escape
 */
PN10_EXPORT int32_t PN10_CALL DrawPict(int32_t firstPipe, int32_t lastPipe, int32_t firstNode, int32_t lastNode,
                                       int32_t firstCust, int32_t lastCust, int32_t firstText, int32_t lastText,
                                       int32_t firstUgd, int32_t lastUgd, int16_t clearHilite, int16_t* recolourPipes,
                                       int16_t* recolourNodes, int16_t* recolourCusts, int16_t linesOnly);

/* ------------------------------------------------------------------------------------------------
 * Edit: grow, count, copy, delete
 * ---------------------------------------------------------------------------------------------- */

/**
 * Grows or shrinks a table to the records 0 to highestRecord. What is beyond is gone, what is new is zero; some calls
 * clear more. Grow table and screen table, then count (GetNextNdtCnt and kin), then set the fields. No call but
 * ReallocFdt changes a count. Addresses of the table end with the call.
 * @return 1; 0 without memory or for a negative number: the table is gone then, its pointer null, and the model at
 *         its end
 */
PN10_EXPORT int32_t PN10_CALL ReallocCXY(int32_t highestRecord);
/** Likewise. Clears LINK_ID and LOAD_UNITS of the last record unless the count is above it. */
PN10_EXPORT int32_t PN10_CALL ReallocCdt(int32_t highestRecord);
/** Likewise. Records from the node count (the present last node among them) to the last become as after InitNXY. */
PN10_EXPORT int32_t PN10_CALL ReallocNXY(int32_t highestRecord);
/** Likewise. Clears NODENAME, P_UNITS and Q_UNITS of the last record unless the count is above it. */
PN10_EXPORT int32_t PN10_CALL ReallocNdt(int32_t highestRecord);
/** Likewise. */
PN10_EXPORT int32_t PN10_CALL ReallocPXY(int32_t highestRecord);
/** Likewise. Clears the six texts of the last record but its date, unless the count is above it. */
PN10_EXPORT int32_t PN10_CALL ReallocPdt(int32_t highestRecord);
/** Likewise for graphic text; rows beyond give their text back. @return 1, or -1 without memory */
PN10_EXPORT int32_t PN10_CALL ReallocTXY(int32_t highestRecord);
/** Likewise. */
PN10_EXPORT int32_t PN10_CALL ReallocVtx(int32_t highestRecord);
/** Likewise. Fittings behind the old count get pipe id and number 0, and the fitting count becomes highestRecord. */
PN10_EXPORT int32_t PN10_CALL ReallocFdt(int32_t highestRecord);
/** Hands out the next free node id: the last one goes up by 1 and is returned. */
PN10_EXPORT int32_t PN10_CALL GetNextNid(void);
/** Hands out the next free pipe id. */
PN10_EXPORT int32_t PN10_CALL GetNextPid(void);
/** Hands out the next free customer id. */
PN10_EXPORT int32_t PN10_CALL GetNextCid(void);
/** Adds `step` to the last node-name number and returns it: the number for a new node's name. */
PN10_EXPORT int32_t PN10_CALL GetNextNode(int16_t step);
/** Counts one more node and returns the count, which is the record number of the new node. */
PN10_EXPORT int32_t PN10_CALL GetNextNdtCnt(void);
/** Counts one more pipe. */
PN10_EXPORT int32_t PN10_CALL GetNextPdtCnt(void);
/** Counts one more customer. */
PN10_EXPORT int32_t PN10_CALL GetNextCdtCnt(void);
/** Counts one more vertex. */
PN10_EXPORT int32_t PN10_CALL GetNextVtxCnt(void);
/** The highest live node (REC_STATUS not -1) below the count; the top record itself is not looked at. 0 for none. */
PN10_EXPORT int32_t PN10_CALL GetLastNdt(void);
/** Likewise for pipes. */
PN10_EXPORT int32_t PN10_CALL GetLastPdt(void);
/** Likewise for customers. */
PN10_EXPORT int32_t PN10_CALL GetLastCdt(void);
/** Copies a whole record to another slot; numbers without a slot copy nothing, here and below. @return 1 */
PN10_EXPORT int32_t PN10_CALL CopyNdt(int32_t fromNode, int32_t toNode);
/** Copies a whole customer record. */
PN10_EXPORT void PN10_CALL CopyCdt(int32_t fromCust, int32_t toCust);
/** Copies a whole vertex record. */
PN10_EXPORT void PN10_CALL CopyVtx(int32_t fromVtx, int32_t toVtx);
/** Copies a whole fitting record. @return 1 */
PN10_EXPORT int32_t PN10_CALL CopyFdt(int32_t fromFtg, int32_t toFtg);
/** Copies a node's screen record. @return -1 */
PN10_EXPORT int32_t PN10_CALL CopyNXY(int32_t fromNode, int32_t toNode);
/** Copies a pipe's screen record. @return -1 */
PN10_EXPORT int32_t PN10_CALL CopyPXY(int32_t fromPipe, int32_t toPipe);
/** Copies a customer's screen record. @return -1 */
PN10_EXPORT int32_t PN10_CALL CopyCXY(int32_t fromCust, int32_t toCust);
/**
 * Copies a pipe and, on request, its fittings.
 * @param fittings  0: the copy counts none (FTG_EQ_LENGTH stays as copied); 1: the first FTG_COUNT fittings of the
 *                  source are copied behind the last one, without FTG_FLAG; any other value: nothing is done about them
 * @param newId     id of the copy and owner of the copied fittings; 0 keeps the id in the record
 * @return -1
 */
PN10_EXPORT int32_t PN10_CALL CopyPdt(int32_t fromPipe, int32_t toPipe, int16_t fittings, int32_t newId);
/** Marks a node deleted (REC_STATUS -1). Nothing else changes; the slot stays until a save or a sort. */
PN10_EXPORT void PN10_CALL DelNode(int32_t node);
/** Marks a pipe deleted. */
PN10_EXPORT void PN10_CALL DelPipe(int32_t pipe);
/** Marks a customer deleted. */
PN10_EXPORT void PN10_CALL DelCust(int32_t cust);
/**
 * Deletes a pipe with what hangs on it, under the wait cursor.
 * @param orphanNodes  nonzero: end nodes that no pipe with a REC_STATUS of 0 or more touches are deleted; with a
 *                     newStatus of 0 or more the pipe itself still touches them
 * @param customers    nonzero: its customers are deleted, the first CUST_COUNT of them, or all when that is 0
 * @param newStatus    REC_STATUS of the pipe, -1 to delete it
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL DelPipePXY(int32_t pipe, int16_t orphanNodes, int16_t customers, int16_t newStatus);
/** Marks the graphic texts of a group type from a record on deleted. @return how many it marked */
PN10_EXPORT int32_t PN10_CALL DelLegend(int32_t firstText, int16_t groupType);
/** Marks the user graphics of a group type from a record on deleted. @return how many it marked */
PN10_EXPORT int32_t PN10_CALL DelBOM(int32_t firstGraphic, int16_t groupType);
/** Marks a graphic text deleted. @return 1 for 0 to the text count, else 0 */
PN10_EXPORT int32_t PN10_CALL DelTXY(int32_t textRecord);
/** Moves a graphic text to a place of the model. @return 1 */
PN10_EXPORT int32_t PN10_CALL MoveTXY(int32_t textRecord, double x, double y);
/** Takes a vertex from its owner (VTX_OWNER 0). @return -1 */
PN10_EXPORT int32_t PN10_CALL KillVtx(int32_t vtx);

/* ------------------------------------------------------------------------------------------------
 * Edit: screen records, flags, addresses
 * ---------------------------------------------------------------------------------------------- */

/** Resets a node's screen record: colour -1, all else 0. */
PN10_EXPORT void PN10_CALL InitNXY(int32_t node);
/** Resets a pipe's screen record: colour and trace colour -1, all else 0. */
PN10_EXPORT void PN10_CALL InitPXY(int32_t pipe);
/** Resets a customer's screen record: colour and trace colour -1, all else 0. */
PN10_EXPORT void PN10_CALL InitCXY(int32_t cust);
/**
 * Prepares an edited node for the next picture: to be drawn, hilite off.
 * @param recolour  nonzero: the colour becomes COLOR, or for a negative one the default of ViewOpts, NodeSpecialColor
 *                  for a node with a HYD_TYPE
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL UpdateNXY(int32_t node, int32_t recolour);
/**
 * Prepares an edited pipe for the next picture: hilite off, vertex run set.
 * @param firstVtx, lastVtx  its run, kept as it is when one is negative; both become 0 for a pipe with VTX_MODE 0
 * @param recolour           nonzero: SetPipeColor
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL UpdatePXY(int32_t pipe, int32_t firstVtx, int32_t lastVtx, int16_t recolour);
/**
 * Prepares an edited customer for the next picture.
 * @param firstVtx, lastVtx  its service line, kept as it is when both are negative; a first above the last means none
 *                           and sets VTX_MODE to 0
 * @param recolour           nonzero: the colour becomes COLOR, or for a negative one CustColor of ViewOpts
 * @param redraw             nonzero: to be drawn
 * @return 1
 */
PN10_EXPORT int32_t PN10_CALL UpdateCXY(int32_t cust, int32_t firstVtx, int32_t lastVtx, int16_t recolour,
                                        int16_t redraw);
/** Stores the low byte of `value` in the flag byte of a pipe. @return -1 */
PN10_EXPORT int32_t PN10_CALL FlagPipe(int32_t pipe, int16_t value);
/** Stores the low byte of `value` in the flag byte of a customer. @return -1 */
PN10_EXPORT int32_t PN10_CALL FlagCust(int32_t cust, int16_t value);
/** Gives first and last vertex of a pipe, 0 for none; out arguments may be null. @return -1 */
PN10_EXPORT int32_t PN10_CALL GetPXY(int32_t pipe, int32_t* firstVtx, int32_t* lastVtx);
/** Gives place, tap place, first and last vertex of a customer; out arguments may be null. @return -1 */
PN10_EXPORT int32_t PN10_CALL GetCXY(int32_t cust, double* x, double* y, double* tapX, double* tapY, int32_t* firstVtx,
                                     int32_t* lastVtx);
/** Stores two places on a service line, each a vertex and a fraction of the way behind it. @return 0 */
PN10_EXPORT int32_t PN10_CALL SetCXYChange(int32_t cust, int32_t vertexA, float fractionA, int32_t vertexB,
                                           float fractionB);
/** Address of slot 0 of the node table, 0 without one; valid until the table grows or is released. */
PN10_EXPORT intptr_t PN10_CALL GetNdtAddress(void);
/** Likewise of the pipe table. */
PN10_EXPORT intptr_t PN10_CALL GetPdtAddress(void);
/** Likewise of the customer table. */
PN10_EXPORT intptr_t PN10_CALL GetCdtAddress(void);
/** Likewise of the pipe screen table. */
PN10_EXPORT intptr_t PN10_CALL GetPXYAddress(void);
/** REC_STATUS of a node; 0 for a number without a slot. */
PN10_EXPORT int32_t PN10_CALL GetNdtChanged(int32_t node);
/** REC_STATUS of a pipe. */
PN10_EXPORT int32_t PN10_CALL GetPdtChanged(int32_t pipe);
/** REC_STATUS of a customer. */
PN10_EXPORT int32_t PN10_CALL GetCdtChanged(int32_t cust);

/* ------------------------------------------------------------------------------------------------
 * Save
 * ---------------------------------------------------------------------------------------------- */

/**
 * Write nodes, pipes, customers, vertices, fittings and references to <base>.ndt, .pdt, .cdt, .vtx, .fdt, .rdx.
 *
 * Live records only: deleted ones and nodes that no live pipe uses stay out, and the references between records
 * are rewritten to the new record numbers; ids never change. The tables in memory keep their numbering until the
 * next load. Each file keeps its previous generation as <name>.bak. A customer on a deleted pipe is dropped.
 * Fittings lie behind four zero bytes: read them with ReadFtg and "10.0". A pipe that has fewer fittings than its
 * FTG_COUNT says gets the count corrected, in memory too.
 * @param rdxCount  rows of the reference table
 * @return the number of pipes written; 0 without any record (nothing is touched) or without a pipe; below 0 the
 *         file that can't be opened or written: -6 .cdt, -4 .ndt, -7 .fdt, -1 .pdt or .rdx, -2 .vtx; -5 no memory
 *         (nothing is touched). After a failure the old files are the .bak files.
 */
PN10_EXPORT int32_t PN10_CALL SavePipe(int32_t rdxCount, const char* base);

/**
 * Write the fitting table to <base>.fdt, keeping the old file as <base>.fdt.bak.
 *
 * Record numbers are kept: an unused record reads as zeros, unused ones at the end are left off.
 * @param version  its first four bytes become the header of the file
 * @return 0, also with no fittings, when no file is touched; -2 the file can't be opened or written
 */
PN10_EXPORT int32_t PN10_CALL SaveFtg(const char* base, const char* version);

/** Write fitting `tableRecord` as record `fileRecord` of an open fitting file; nothing without file or record. */
PN10_EXPORT void PN10_CALL FilePutFdt(int16_t handle, int32_t tableRecord, int32_t fileRecord);

/**
 * Write the facility file that ReadFac reads; names and pressure units lose the white space at their end, in the
 * table as well.
 *
 * @param title  first line of the file
 * @return row count; 0 when the table is empty, and no file is touched; -2 the file can't be written
 */
PN10_EXPORT int32_t PN10_CALL SaveFac(const char* path, const char* title);

/* ------------------------------------------------------------------------------------------------
 * Release
 *
 * Nothing is released implicitly: whoever loads calls these.
 * ---------------------------------------------------------------------------------------------- */

/**
 * Releases nodes, pipes, customers, vertices, texts, user graphics, header lines, references and the pipe lookup, and
 * zeroes their counts. Ids handed out go on from where they are; fittings, facilities, layers, the other lookups and
 * the undo journal have calls of their own. Calling it again does nothing.
 */
PN10_EXPORT void PN10_CALL FreeModel(void);
/** Releases the fittings. @return 1, or 0 when there was no table */
PN10_EXPORT int32_t PN10_CALL FreeFdt(void);

/** Release the facility table; the last facility number stays. Returns 1, also without a table. */
PN10_EXPORT int32_t PN10_CALL FreeFac(void);

/** Release the pipe sizes and their index, count 0. Returns 1. */
PN10_EXPORT int32_t PN10_CALL FreePLut(void);

/** Release the other five lookups; their counts stay readable. Returns 1. */
PN10_EXPORT int32_t PN10_CALL FreeLut(void);

/** Release the calculation library. */
PN10_EXPORT void PN10_CALL FreeHQDll(void);
/** Does nothing. @return 0 */
PN10_EXPORT int32_t PN10_CALL cnull(void);

#ifdef __cplusplus
}
#endif

#endif /* PN10GDI_H */

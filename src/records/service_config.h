// The service configuration information record (C.S0005 3.7.5.7) and the non-negotiable
// service configuration record (C.S0005 3.7.5.20), as carried by the Service Connect,
// General / Universal Handoff Direction, Extended Supplemental Channel Assignment and
// Service Request / Response messages of both traffic channel directions.
//
// Messages carry each one behind an 8-bit record type and an 8-bit length in octets:
// scr_record() and nnscr_record() walk that framing (the message's RECORD_TYPE / RECORD_LEN /
// SCR, or RECORD_TYPE2 / RECORD_LEN2 / NNSCR) and the record under it, so that a message
// layout writes one call where the air interface has the three fields. The record
// is bounded to its declared length and the walk then moves past all of it, so octets that
// a later revision appends are skipped.
//
// Presence of revision-dependent fields follows Ctx::p_rev; a message that carries its own
// P_REV (the Universal Handoff Direction Message) hands a Ctx with that value.
#pragma once
#include <cstdint>

#include "codec/walk.h"

namespace cs {

// ---- Service configuration record ------------------------------------------------------

// One service option connection record. RECORD_LEN counts the octets of the connection
// record including RECORD_LEN itself; whatever the record holds past the fields this
// revision knows is skipped.
struct ScrConRec {
  std::uint8_t RECORD_LEN;
  std::uint8_t CON_REF;
  std::uint16_t SERVICE_OPTION;
  std::uint8_t FOR_TRAFFIC;
  std::uint8_t REV_TRAFFIC;
  std::uint8_t UI_ENCRYPT_MODE;
  std::uint8_t SR_ID;
  std::uint8_t RLP_INFO_INCL;
  std::uint8_t RLP_BLOB_LEN;
  Bytes RLP_BLOB;
  std::uint8_t QOS_PARMS_INCL;
  std::uint8_t QOS_PARMS_LEN;
  Bytes QOS_PARMS;
};

// A supplemental channel: its identifier, multiplex option and channel configuration. The
// configuration is length-prefixed: SCH_REC_LEN counts its octets, SCH_REC_LEN included.
struct ScrSch {
  std::uint8_t SCH_ID;
  std::uint16_t SCH_MUX;
  std::uint8_t SCH_REC_LEN;
  std::uint8_t SCH_RC;
  std::uint8_t CODING_TYPE;
  std::uint8_t FRAME_40_USED;
  std::uint8_t FRAME_80_USED;
  std::uint8_t MAX_RATE;
};
// The same record printed with the forward or the reverse field names.
struct ScrForSch : ScrSch {};
struct ScrRevSch : ScrSch {};

struct ServiceConfig {
  std::uint16_t FOR_MUX_OPTION;
  std::uint16_t REV_MUX_OPTION;
  std::uint8_t FOR_NUM_BITS;
  std::uint8_t REV_NUM_BITS;
  std::uint8_t NUM_CON_REC;
  PoolArray<ScrConRec> CON_RECs;
  // P_REV 6 and later
  std::uint8_t FCH_CC_INCL;
  std::uint8_t FCH_FRAME_SIZE;
  std::uint8_t FOR_FCH_RC;
  std::uint8_t REV_FCH_RC;
  std::uint8_t DCCH_CC_INCL;
  std::uint8_t DCCH_FRAME_SIZE;
  std::uint8_t FOR_DCCH_RC;
  std::uint8_t REV_DCCH_RC;
  std::uint8_t FOR_SCH_CC_INCL;
  std::uint8_t NUM_FOR_SCH;
  PoolArray<ScrForSch> FOR_SCHs;
  std::uint8_t REV_SCH_CC_INCL;
  std::uint8_t NUM_REV_SCH;
  PoolArray<ScrRevSch> REV_SCHs;
  // P_REV 8 and later
  std::uint8_t FCH_DCCH_MUX_OPTION_IND;
  std::uint16_t FOR_DCCH_MUX_OPTION;
  std::uint16_t REV_DCCH_MUX_OPTION;
  // P_REV 9 and later
  std::uint8_t FOR_PDCH_CC_INCL;
  std::uint16_t FOR_PDCH_MUX_OPTION;
  std::uint8_t FOR_PDCH_RC;
  // P_REV 10 and later
  std::uint8_t REV_PDCH_CC_INCL;
  std::uint16_t REV_PDCH_MUX_OPTION_HIGH_RATE;
  std::uint16_t REV_PDCH_MUX_OPTION_LOW_RATE;
  std::uint8_t REV_PDCH_RC;
};

// ---- Non-negotiable service configuration record ----------------------------------------

struct NnscrSch {
  std::uint8_t SCH_ID;
  std::uint8_t SCH_FRAME_OFFSET;
};
struct NnscrForSch : NnscrSch {};
struct NnscrRevSch : NnscrSch {};

// One entry of the logical-to-physical mapping table.
struct NnscrLpmEntry {
  std::uint8_t SR_ID;
  std::uint8_t LOGICAL_RESOURCE;
  std::uint8_t PHYSICAL_RESOURCE;
  std::uint8_t FORWARD_FLAG;
  std::uint8_t REVERSE_FLAG;
  std::uint8_t PRIORITY;
};

// A service-specific record; RECORD_LEN counts the octets after it.
struct NnscrSrRec {
  std::uint8_t RECORD_LEN;
  std::uint8_t SR_ID;
  std::uint8_t SDB_SO_OMIT;
};

struct NnscrNumBitsRec {
  std::uint8_t NUM_BITS_IDX;
  std::uint16_t NUM_BITS;
  std::uint8_t CRC_LEN_IDX;
};
struct NnscrNumBitsTable {
  std::uint8_t NUM_BITS_TABLE_ID;
  std::uint8_t NUM_RECS;   // records sent: NUM_RECS + 1
  PoolArray<NnscrNumBitsRec> RECs;
};

struct NnscrVarRateRec {
  std::uint8_t NUM_BITS_IDX;
  std::uint16_t MASK;   // NUM_BITS_IDX bits
};
struct NnscrVarRateTable {
  std::uint8_t VAR_RATE_TABLE_ID;
  std::uint8_t NUM_RECS;   // records sent: NUM_RECS + 1
  PoolArray<NnscrVarRateRec> RECs;
};

struct NnscrLtuRow {
  std::uint8_t NBITS_IDX;
  std::uint8_t NUM_LTUS;
};
struct NnscrLtuTable {
  std::uint8_t LTU_TABLE_ID;
  std::uint8_t NUM_ROWS;   // rows sent: NUM_ROWS + 1
  PoolArray<NnscrLtuRow> ROWs;
};

struct NnscrPartition {
  std::uint8_t SR_ID;
  std::uint16_t SRV_NUM_BITS;
};
struct NnscrPartitionRow {
  std::uint8_t CATEGORY;
  std::uint8_t MUX_HEADER_LEN;
  std::uint8_t MUX_HEADER;       // MUX_HEADER_LEN bits
  std::uint8_t NUM_PARTITIONS;   // partitions sent: NUM_PARTITIONS + 1
  PoolArray<NnscrPartition> PARTITIONs;
};
struct NnscrPartitionTable {
  std::uint8_t PARTITION_TABLE_ID;
  std::uint8_t NUM_ROWS;   // rows sent: NUM_ROWS + 1
  PoolArray<NnscrPartitionRow> ROWs;
};

struct Nnscr {
  std::uint8_t FPC_INCL;
  std::uint8_t FPC_PRI_CHAN;
  std::uint8_t FPC_MODE;
  std::uint8_t FPC_OLPC_FCH_INCL;
  std::uint8_t FPC_FCH_FER;
  std::uint8_t FPC_FCH_MIN_SETPT;
  std::uint8_t FPC_FCH_MAX_SETPT;
  std::uint8_t FPC_OLPC_DCCH_INCL;
  std::uint8_t FPC_DCCH_FER;
  std::uint8_t FPC_DCCH_MIN_SETPT;
  std::uint8_t FPC_DCCH_MAX_SETPT;
  std::uint8_t GATING_RATE_INCL;
  std::uint8_t PILOT_GATING_RATE;
  // P_REV 7 and later
  std::uint8_t FOR_SCH_INCL;
  std::uint8_t NUM_FOR_SCH;
  PoolArray<NnscrForSch> FOR_SCHs;
  std::uint8_t REV_SCH_INCL;
  std::uint8_t NUM_REV_SCH;
  PoolArray<NnscrRevSch> REV_SCHs;
  // all revisions of the record
  std::uint8_t LPM_IND;
  std::uint8_t NUM_LPM_ENTRIES;
  PoolArray<NnscrLpmEntry> LPM_ENTRIES;
  // P_REV 7 and later
  std::uint8_t NUM_REC;
  PoolArray<NnscrSrRec> RECs;
  std::uint8_t USE_FLEX_NUM_BITS;
  std::uint8_t NUM_BITS_TABLES_INCL;
  std::uint8_t NUM_BITS_TABLES_COUNT;   // tables sent: count + 1
  PoolArray<NnscrNumBitsTable> NUM_BITS_TABLEs;
  std::uint8_t USE_VAR_RATE;
  std::uint8_t VAR_TABLES_INCL;
  std::uint8_t VAR_RATE_TABLES_COUNT;   // tables sent: count + 1
  PoolArray<NnscrVarRateTable> VAR_RATE_TABLEs;
  std::uint8_t USE_OLD_FLEX_MAPPING;
  std::uint8_t FSCH0_NBIT_TABLE_ID;
  std::uint8_t RSCH0_NBIT_TABLE_ID;
  std::uint8_t FSCH1_NBIT_TABLE_ID;
  std::uint8_t RSCH1_NBIT_TABLE_ID;
  std::uint8_t FFCH_NBIT_TABLE_ID;
  std::uint8_t RFCH_NBIT_TABLE_ID;
  std::uint8_t FDCCH_NBIT_TABLE_ID;
  std::uint8_t FDCCH_NBITS_IDX;
  std::uint8_t RDCCH_NBIT_TABLE_ID;
  std::uint8_t RDCCH_NBITS_IDX;
  std::uint8_t USE_OLD_VAR_MAPPING;
  std::uint8_t FSCH0_VAR_TABLE_ID;
  std::uint8_t RSCH0_VAR_TABLE_ID;
  std::uint8_t FSCH1_VAR_TABLE_ID;
  std::uint8_t RSCH1_VAR_TABLE_ID;
  std::uint8_t R_INC_RATE_ALLOWED;
  std::uint8_t F_INC_RATE_ALLOWED;
  std::uint8_t LTU_INFO_INCL;
  std::uint8_t LTU_TABLES_INCL;
  std::uint8_t NUM_LTU_TABLES;   // tables sent: NUM_LTU_TABLES + 1
  PoolArray<NnscrLtuTable> LTU_TABLEs;
  std::uint8_t USE_OLD_LTU_MAPPING;
  std::uint8_t FSCH0_LTU_TAB_ID;
  std::uint8_t RSCH0_LTU_TAB_ID;
  std::uint8_t FSCH1_LTU_TAB_ID;
  std::uint8_t RSCH1_LTU_TAB_ID;
  std::uint8_t PARTITION_TABLES_INFO_INCL;
  std::uint8_t PARTITION_TABLES_INCL;
  std::uint8_t NUM_PARTITION_TABLES;   // tables sent: NUM_PARTITION_TABLES + 1
  PoolArray<NnscrPartitionTable> PARTITION_TABLEs;
  std::uint8_t USE_OLD_PART_MAPPING;
  std::uint8_t FFCH_PART_TAB_ID;
  std::uint8_t RFCH_PART_TAB_ID;
  std::uint8_t FDCCH_PART_TAB_ID;
  std::uint8_t RDCCH_PART_TAB_ID;
  // P_REV 8 and later
  std::uint8_t USE_ERAM;
  // P_REV 9 and later
  std::uint8_t SWITCHING_PARAMS_INCL;
  std::uint8_t NUM_SOFT_SWITCHING_FRAMES_CHM;
  std::uint8_t NUM_SOFTER_SWITCHING_FRAMES_CHM;
};

// ---- Layouts ------------------------------------------------------------------------------

template <class W>
void layout(W& w, ScrConRec& r, const Ctx& c) {
  // RECORD_LEN covers the whole connection record, itself included: the walk moves past the
  // reserved padding and any fields of later revisions.
  auto end = w.declared_end();
  w(F(RECORD_LEN, 8), F(CON_REF, 8), F(SERVICE_OPTION, 16), F(FOR_TRAFFIC, 4), F(REV_TRAFFIC, 4));
  if (c.p_rev >= 6) {
    w(F(UI_ENCRYPT_MODE, 3), F(SR_ID, 3), F(RLP_INFO_INCL, 1));
    if (r.RLP_INFO_INCL) {
      w(F(RLP_BLOB_LEN, 4));
      if (r.RLP_BLOB_LEN) w(F(RLP_BLOB, 8u * r.RLP_BLOB_LEN));
    }
  }
  if (c.p_rev >= 7) {
    w(F(QOS_PARMS_INCL, 1));
    if (r.QOS_PARMS_INCL) {
      w(F(QOS_PARMS_LEN, 5));
      if (r.QOS_PARMS_LEN) w(F(QOS_PARMS, 8u * r.QOS_PARMS_LEN));
    }
  }
  end.at(8u * r.RECORD_LEN);
}

// The channel configuration; SCH_REC_LEN counts its octets, itself included, so reserved bits
// and fields of later revisions up to that length are passed over.
template <class W>
void sch_cc(W& w, ScrSch& r) {
  auto end = w.declared_end();
  w(F(SCH_REC_LEN, 4), F(SCH_RC, 5), F(CODING_TYPE, 1), F(FRAME_40_USED, 1), F(FRAME_80_USED, 1), F(MAX_RATE, 4));
  end.at(8u * r.SCH_REC_LEN);
}

template <class W>
void layout(W& w, ScrForSch& r, const Ctx&) {
  w(field(r.SCH_ID, "FOR_SCH_ID", 2), field(r.SCH_MUX, "FOR_SCH_MUX", 16));
  sch_cc(w, r);
}

template <class W>
void layout(W& w, ScrRevSch& r, const Ctx&) {
  w(field(r.SCH_ID, "REV_SCH_ID", 2), field(r.SCH_MUX, "REV_SCH_MUX", 16));
  sch_cc(w, r);
}

template <class W>
void layout(W& w, ServiceConfig& r, const Ctx& c) {
  w(F(FOR_MUX_OPTION, 16), F(REV_MUX_OPTION, 16), F(FOR_NUM_BITS, 8), F(REV_NUM_BITS, 8), F(NUM_CON_REC, 8));
  w.records("CON_RECs", r.CON_RECs, r.NUM_CON_REC, c);
  if (c.p_rev < 6) return;

  w(F(FCH_CC_INCL, 1));
  if (r.FCH_CC_INCL) w(F(FCH_FRAME_SIZE, 1), F(FOR_FCH_RC, 5), F(REV_FCH_RC, 5));
  w(F(DCCH_CC_INCL, 1));
  if (r.DCCH_CC_INCL) w(F(DCCH_FRAME_SIZE, 2), F(FOR_DCCH_RC, 5), F(REV_DCCH_RC, 5));
  w(F(FOR_SCH_CC_INCL, 1));
  if (r.FOR_SCH_CC_INCL) {
    w(F(NUM_FOR_SCH, 2));
    w.records("SCR_FOR_SCHs", "SCR_FOR_SCHs", r.FOR_SCHs, r.NUM_FOR_SCH, c);
  }
  w(F(REV_SCH_CC_INCL, 1));
  if (r.REV_SCH_CC_INCL) {
    w(F(NUM_REV_SCH, 2));
    w.records("SCR_REV_SCHs", "SCR_REV_SCHs", r.REV_SCHs, r.NUM_REV_SCH, c);
  }
  if (c.p_rev < 8) return;

  w(F(FCH_DCCH_MUX_OPTION_IND, 2));
  // '11': the DCCH runs its own multiplex options, sent here; the other values reuse
  // FOR_MUX_OPTION / REV_MUX_OPTION.
  if (r.FCH_DCCH_MUX_OPTION_IND == 3) w(F(FOR_DCCH_MUX_OPTION, 16), F(REV_DCCH_MUX_OPTION, 16));
  if (c.p_rev < 9) return;
  w(F(FOR_PDCH_CC_INCL, 1));
  if (r.FOR_PDCH_CC_INCL) w(F(FOR_PDCH_MUX_OPTION, 16), F(FOR_PDCH_RC, 5));
  if (c.p_rev < 10) return;

  w(F(REV_PDCH_CC_INCL, 1));
  if (r.REV_PDCH_CC_INCL) {
    w(F(REV_PDCH_MUX_OPTION_HIGH_RATE, 16), F(REV_PDCH_MUX_OPTION_LOW_RATE, 16), F(REV_PDCH_RC, 5));
  }
}

template <class W>
void layout(W& w, NnscrForSch& r, const Ctx&) {
  w(field(r.SCH_ID, "FOR_SCH_ID", 2), field(r.SCH_FRAME_OFFSET, "FOR_SCH_FRAME_OFFSET", 2));
}

template <class W>
void layout(W& w, NnscrRevSch& r, const Ctx&) {
  w(field(r.SCH_ID, "REV_SCH_ID", 2), field(r.SCH_FRAME_OFFSET, "REV_SCH_FRAME_OFFSET", 2));
}

template <class W>
void layout(W& w, NnscrLpmEntry& r, const Ctx&) {
  w(F(SR_ID, 3), F(LOGICAL_RESOURCE, 4), F(PHYSICAL_RESOURCE, 4), F(FORWARD_FLAG, 1), F(REVERSE_FLAG, 1),
    F(PRIORITY, 4));
}

template <class W>
void layout(W& w, NnscrSrRec& r, const Ctx&) {
  // RECORD_LEN counts the octets after itself; the reserved bits up to there are passed over.
  auto end = w.declared_end();
  w(F(RECORD_LEN, 8), F(SR_ID, 3), F(SDB_SO_OMIT, 1));
  end.at(8u + 8u * r.RECORD_LEN);
}

template <class W>
void layout(W& w, NnscrNumBitsRec& r, const Ctx&) {
  w(F(NUM_BITS_IDX, 4), F(NUM_BITS, 16), F(CRC_LEN_IDX, 3));
}

template <class W>
void layout(W& w, NnscrNumBitsTable& r, const Ctx& c) {
  w(F(NUM_BITS_TABLE_ID, 4), F(NUM_RECS, 4));
  w.records("RECs", r.RECs, r.NUM_RECS + 1u, c);
}

template <class W>
void layout(W& w, NnscrVarRateRec& r, const Ctx&) {
  w(F(NUM_BITS_IDX, 4));
  // One mask bit per lower rate of the flexible rate table: NUM_BITS_IDX bits.
  w(F(MASK, r.NUM_BITS_IDX));
}

template <class W>
void layout(W& w, NnscrVarRateTable& r, const Ctx& c) {
  w(F(VAR_RATE_TABLE_ID, 3), F(NUM_RECS, 4));
  w.records("RECs", r.RECs, r.NUM_RECS + 1u, c);
}

template <class W>
void layout(W& w, NnscrLtuRow& r, const Ctx&) {
  w(F(NBITS_IDX, 4), F(NUM_LTUS, 4));
}

template <class W>
void layout(W& w, NnscrLtuTable& r, const Ctx& c) {
  w(F(LTU_TABLE_ID, 3), F(NUM_ROWS, 4));
  w.records("ROWs", r.ROWs, r.NUM_ROWS + 1u, c);
}

template <class W>
void layout(W& w, NnscrPartition& r, const Ctx&) {
  w(F(SR_ID, 3), F(SRV_NUM_BITS, 9));
}

template <class W>
void layout(W& w, NnscrPartitionRow& r, const Ctx& c) {
  w(F(CATEGORY, 5), F(MUX_HEADER_LEN, 3));
  w(F(MUX_HEADER, r.MUX_HEADER_LEN), F(NUM_PARTITIONS, 3));
  w.records("PARTITIONs", r.PARTITIONs, r.NUM_PARTITIONS + 1u, c);
}

template <class W>
void layout(W& w, NnscrPartitionTable& r, const Ctx& c) {
  w(F(PARTITION_TABLE_ID, 3), F(NUM_ROWS, 5));
  w.records("ROWs", r.ROWs, r.NUM_ROWS + 1u, c);
}

template <class W>
void layout(W& w, Nnscr& r, const Ctx& c) {
  w(F(FPC_INCL, 1));
  if (r.FPC_INCL) {
    w(F(FPC_PRI_CHAN, 1), F(FPC_MODE, 3), F(FPC_OLPC_FCH_INCL, 1));
    if (r.FPC_OLPC_FCH_INCL) w(F(FPC_FCH_FER, 5), F(FPC_FCH_MIN_SETPT, 8), F(FPC_FCH_MAX_SETPT, 8));
    w(F(FPC_OLPC_DCCH_INCL, 1));
    if (r.FPC_OLPC_DCCH_INCL) w(F(FPC_DCCH_FER, 5), F(FPC_DCCH_MIN_SETPT, 8), F(FPC_DCCH_MAX_SETPT, 8));
  }
  w(F(GATING_RATE_INCL, 1));
  if (r.GATING_RATE_INCL) w(F(PILOT_GATING_RATE, 2));
  if (c.p_rev == 6) {
    // P_REV 6 reserves the two bits where later revisions start the supplemental groups.
    w(reserved(2));
  }

  if (c.p_rev >= 7) {
    w(F(FOR_SCH_INCL, 1));
    if (r.FOR_SCH_INCL) {
      w(F(NUM_FOR_SCH, 2));
      w.records("FOR_SCHs", r.FOR_SCHs, r.NUM_FOR_SCH, c);
    }
    w(F(REV_SCH_INCL, 1));
    if (r.REV_SCH_INCL) {
      w(F(NUM_REV_SCH, 2));
      w.records("REV_SCHs", r.REV_SCHs, r.NUM_REV_SCH, c);
    }
  }

  w(F(LPM_IND, 2));
  // '01': a new mapping table follows; '00' default mapping, '10' keep the current one.
  if (r.LPM_IND == 1) {
    w(F(NUM_LPM_ENTRIES, 4));
    w.records("LPM_ENTRIES", r.LPM_ENTRIES, r.NUM_LPM_ENTRIES, c);
  }

  if (c.p_rev >= 7) {
    w(F(NUM_REC, 3));
    w.records("RECs", r.RECs, r.NUM_REC, c);

    w(F(USE_FLEX_NUM_BITS, 1));
    if (r.USE_FLEX_NUM_BITS) {
      w(F(NUM_BITS_TABLES_INCL, 1));
      if (r.NUM_BITS_TABLES_INCL) {
        w(F(NUM_BITS_TABLES_COUNT, 3));
        w.records("NUM_BITS_TABLEs", r.NUM_BITS_TABLEs, r.NUM_BITS_TABLES_COUNT + 1u, c);
      }
    }
    w(F(USE_VAR_RATE, 1));
    if (r.USE_VAR_RATE) {
      w(F(VAR_TABLES_INCL, 1));
      if (r.VAR_TABLES_INCL) {
        w(F(VAR_RATE_TABLES_COUNT, 3));
        w.records("VAR_RATE_TABLEs", r.VAR_RATE_TABLEs, r.VAR_RATE_TABLES_COUNT + 1u, c);
      }
    }

    // Which flexible and variable rate tables each channel uses.
    if (r.USE_FLEX_NUM_BITS) {
      w(F(USE_OLD_FLEX_MAPPING, 1));
      if (!r.USE_OLD_FLEX_MAPPING) {
        w(F(FSCH0_NBIT_TABLE_ID, 4), F(RSCH0_NBIT_TABLE_ID, 4), F(FSCH1_NBIT_TABLE_ID, 4), F(RSCH1_NBIT_TABLE_ID, 4),
          F(FFCH_NBIT_TABLE_ID, 4), F(RFCH_NBIT_TABLE_ID, 4), F(FDCCH_NBIT_TABLE_ID, 4));
        if (r.FDCCH_NBIT_TABLE_ID) w(F(FDCCH_NBITS_IDX, 4));
        w(F(RDCCH_NBIT_TABLE_ID, 4));
        if (r.RDCCH_NBIT_TABLE_ID) w(F(RDCCH_NBITS_IDX, 4));
      }
    }
    if (r.USE_VAR_RATE) {
      w(F(USE_OLD_VAR_MAPPING, 1));
      if (!r.USE_OLD_VAR_MAPPING) {
        w(F(FSCH0_VAR_TABLE_ID, 3), F(RSCH0_VAR_TABLE_ID, 3), F(FSCH1_VAR_TABLE_ID, 3), F(RSCH1_VAR_TABLE_ID, 3));
      }
      w(F(R_INC_RATE_ALLOWED, 1), F(F_INC_RATE_ALLOWED, 1));
    }

    w(F(LTU_INFO_INCL, 1));
    if (r.LTU_INFO_INCL) {
      w(F(LTU_TABLES_INCL, 1));
      if (r.LTU_TABLES_INCL) {
        w(F(NUM_LTU_TABLES, 2));
        w.records("LTU_TABLEs", r.LTU_TABLEs, r.NUM_LTU_TABLES + 1u, c);
      }
      w(F(USE_OLD_LTU_MAPPING, 1));
      if (!r.USE_OLD_LTU_MAPPING) {
        w(F(FSCH0_LTU_TAB_ID, 3), F(RSCH0_LTU_TAB_ID, 3), F(FSCH1_LTU_TAB_ID, 3), F(RSCH1_LTU_TAB_ID, 3));
      }
    }

    if (r.USE_FLEX_NUM_BITS) {
      w(F(PARTITION_TABLES_INFO_INCL, 1));
      if (r.PARTITION_TABLES_INFO_INCL) {
        w(F(PARTITION_TABLES_INCL, 1));
        if (r.PARTITION_TABLES_INCL) {
          w(F(NUM_PARTITION_TABLES, 2));
          w.records("PARTITION_TABLEs", r.PARTITION_TABLEs, r.NUM_PARTITION_TABLES + 1u, c);
        }
        w(F(USE_OLD_PART_MAPPING, 1));
        if (!r.USE_OLD_PART_MAPPING) {
          w(F(FFCH_PART_TAB_ID, 3), F(RFCH_PART_TAB_ID, 3), F(FDCCH_PART_TAB_ID, 3), F(RDCCH_PART_TAB_ID, 3));
        }
      }
    }
  }

  if (c.p_rev >= 8 && (r.USE_FLEX_NUM_BITS || r.USE_VAR_RATE)) w(F(USE_ERAM, 1));
  if (c.p_rev >= 9 && r.GATING_RATE_INCL) {
    w(F(SWITCHING_PARAMS_INCL, 1));
    if (r.SWITCHING_PARAMS_INCL) w(F(NUM_SOFT_SWITCHING_FRAMES_CHM, 4), F(NUM_SOFTER_SWITCHING_FRAMES_CHM, 4));
  }
}

// ---- Framing as messages carry the records ------------------------------------------------

// RECORD_TYPE (8), RECORD_LEN (8) and RECORD_LEN octets of service configuration, printed
// as "TypeSpecificFields = SCR". A zero length carries no record.
template <class W, class R>
void scr_record(W& w, R& r, const Ctx& c) {
  w(F(RECORD_TYPE, 8), F(RECORD_LEN, 8));
  if (r.RECORD_LEN != 0) w.sized("TypeSpecificFields", "SCR", r.SCR, 8u * r.RECORD_LEN, c);
}

// RECORD_TYPE2 (8), RECORD_LEN2 (8) and the non-negotiable record, printed as
// "TypeSpecificFields2 = NNSCR".
template <class W, class R>
void nnscr_record(W& w, R& r, const Ctx& c) {
  w(F(RECORD_TYPE2, 8), F(RECORD_LEN2, 8));
  if (r.RECORD_LEN2 != 0) w.sized("TypeSpecificFields2", "NNSCR", r.NNSCR, 8u * r.RECORD_LEN2, c);
}

// Service Request and Service Response Messages (C.S0005 3.7.3.3.2.18/19 forward,
// 2.7.2.3.2.12/13 reverse): the same layout in both directions and both messages; the
// response names its purpose RESP_PURPOSE. Only a proposal ('0010') carries a service
// configuration.
template <bool kResponse>
struct ServiceReqResp {
  std::uint8_t SERV_REQ_SEQ;
  std::uint8_t PURPOSE;
  std::uint8_t RECORD_TYPE;
  std::uint8_t RECORD_LEN;
  ServiceConfig SCR;
};

template <class W, bool kResponse>
void layout(W& w, ServiceReqResp<kResponse>& r, const Ctx& c) {
  w(F(SERV_REQ_SEQ, 3), field(r.PURPOSE, kResponse ? "RESP_PURPOSE" : "REQ_PURPOSE", 4));
  if (r.PURPOSE == 2) scr_record(w, r, c);
}

}  // namespace cs

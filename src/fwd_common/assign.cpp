// Channel assignment bodies of the paging / forward common channel: the Channel Assignment
// Message (C.S0005 3.7.2.3.2.8) and the Extended Channel Assignment Message (3.7.2.3.2.21),
// each a small header that selects an assignment mode and the record of that mode.
#include <cstdint>

#include "codec/layout.h"
#include "fwd_common/bodies.h"

namespace cs {
namespace {

using u8 = std::uint8_t;
using u16 = std::uint16_t;

// ---------------------------------------------------------------------------------------------
// Fields shared by several mode records.

// The signalling encryption fields that follow ENCRYPT_MODE from P_REV 7: the dedicated
// channel mode with extended encryption ('11'), the key size with enhanced or extended
// encryption, and the common channel mode under its own flag.
template <class W, class R>
void encryption_fields(W& w, R& r, const Ctx& c) {
  if (c.p_rev < 7) return;
  if (r.ENCRYPT_MODE == 3) {
    if (!w.need(3)) return;
    w.u(r.D_SIG_ENCRYPT_MODE, "D_SIG_ENCRYPT_MODE", 3);
  }
  if (r.ENCRYPT_MODE == 2 || r.ENCRYPT_MODE == 3) {
    if (!w.need(3)) return;
    w.u(r.ENC_KEY_SIZE, "ENC_KEY_SIZE", 3);
  }
  if (!w.need(1)) return;
  w.u(r.C_SIG_ENCRYPT_MODE_INCL, "C_SIG_ENCRYPT_MODE_INCL", 1);
  if (r.C_SIG_ENCRYPT_MODE_INCL) {
    if (!w.need(3)) return;
    w.u(r.C_SIG_ENCRYPT_MODE, "C_SIG_ENCRYPT_MODE", 3);
  }
}

// Message integrity keys and the public long code mask type, from P_REV 9.
template <class W, class R>
void integrity_and_plcm_fields(W& w, R& r, const Ctx& c) {
  if (c.p_rev < 9) return;
  if (!w.need(1)) return;
  w.u(r.MSG_INT_INFO_INCL, "MSG_INT_INFO_INCL", 1);
  if (r.MSG_INT_INFO_INCL) {
    if (!w.need(2)) return;
    w.u(r.CHANGE_KEYS, "CHANGE_KEYS", 1);
    w.u(r.USE_UAK, "USE_UAK", 1);
  }
  if (!w.need(1)) return;
  w.u(r.PLCM_TYPE_INCL, "PLCM_TYPE_INCL", 1);
  if (r.PLCM_TYPE_INCL) {
    if (!w.need(4)) return;
    w.u(r.PLCM_TYPE, "PLCM_TYPE", 4);
    if (r.PLCM_TYPE == 1) {   // the mask itself is sent only for the base-station-specified type
      if (!w.need(39)) return;
      w.bits(r.PLCM_39, "PLCM_39", 39);
    }
  }
}

// The analog assignments read the same in both messages.
struct AnalogControl {   // mode '010'
  u8 RESPOND, ANALOG_SYS, USE_ANALOG_SYS, BAND_CLASS;
};
template <class W>
void layout(W& w, AnalogControl& r, const Ctx&) {
  if (!w.need(8)) return;
  w.u(r.RESPOND, "RESPOND", 1);
  w.u(r.ANALOG_SYS, "ANALOG_SYS", 1);
  w.u(r.USE_ANALOG_SYS, "USE_ANALOG_SYS", 1);
  w.u(r.BAND_CLASS, "BAND_CLASS", 5);
}

struct AnalogVoice {   // mode '011'
  u16 SID, ANALOG_CHAN;
  u8 VMAC, SCC, MEM, AN_CHAN_TYPE, DSCC_MSB, BAND_CLASS;
};
template <class W>
void layout(W& w, AnalogVoice& r, const Ctx&) {
  if (!w.need(40)) return;
  w.u(r.SID, "SID", 15);
  w.u(r.VMAC, "VMAC", 3);
  w.u(r.ANALOG_CHAN, "ANALOG_CHAN", 11);
  w.u(r.SCC, "SCC", 2);
  w.u(r.MEM, "MEM", 1);
  w.u(r.AN_CHAN_TYPE, "AN_CHAN_TYPE", 2);
  w.u(r.DSCC_MSB, "DSCC_MSB", 1);
  w.u(r.BAND_CLASS, "BAND_CLASS", 5);
}

// ---------------------------------------------------------------------------------------------
// Channel Assignment Message. Each mode record fills ADD_RECORD_LEN octets; the paging channel
// lists of modes '001' and '101' have no count and run to the end of the record.

struct CamTraffic {   // '000'
  u8 FREQ_INCL, CODE_CHAN;
  u16 CDMA_FREQ;
  u8 FRAME_OFFSET, ENCRYPT_MODE, D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
};
template <class W>
void layout(W& w, CamTraffic& r, const Ctx& c) {
  if (!w.need(9)) return;
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  w.u(r.CODE_CHAN, "CODE_CHAN", 8);
  if (r.FREQ_INCL) {
    if (!w.need(11)) return;
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  if (!w.need(6)) return;
  w.u(r.FRAME_OFFSET, "FRAME_OFFSET", 4);
  w.u(r.ENCRYPT_MODE, "ENCRYPT_MODE", 2);
  encryption_fields(w, r, c);
}

// The pilots of a paging channel assignment: as many 9-bit PN offsets as the record holds.
// The count only matters to the reader; the printer shows the offsets that were read.
template <class W>
void pilot_pn_list(W& w, PoolArray<u16>& a) {
  w.scalars("PILOT_PN", a, static_cast<std::uint32_t>(w.left() / 9), 9);
}

struct CamPaging {   // '001'
  u8 RESPOND, FREQ_INCL;
  u16 CDMA_FREQ;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, CamPaging& r, const Ctx&) {
  if (!w.need(2)) return;
  w.u(r.RESPOND, "RESPOND", 1);
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  if (r.FREQ_INCL) {
    if (!w.need(11)) return;
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  pilot_pn_list(w, r.PILOT_PN);
}

struct CamExtTraffic {   // '100'
  u8 FREQ_INCL, BYPASS_ALERT_ANSWER, DEFAULT_CONFIG, GRANTED_MODE, CODE_CHAN, FRAME_OFFSET, ENCRYPT_MODE, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
};
template <class W>
void layout(W& w, CamExtTraffic& r, const Ctx& c) {
  if (!w.need(24)) return;
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  w.skip(3);
  w.u(r.BYPASS_ALERT_ANSWER, "BYPASS_ALERT_ANSWER", 1);
  w.u(r.DEFAULT_CONFIG, "DEFAULT_CONFIG", 3);
  w.u(r.GRANTED_MODE, "GRANTED_MODE", 2);
  w.u(r.CODE_CHAN, "CODE_CHAN", 8);
  w.u(r.FRAME_OFFSET, "FRAME_OFFSET", 4);
  w.u(r.ENCRYPT_MODE, "ENCRYPT_MODE", 2);
  if (r.FREQ_INCL) {
    if (!w.need(16)) return;
    w.u(r.BAND_CLASS, "BAND_CLASS", 5);
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  encryption_fields(w, r, c);
}

struct CamExtPaging {   // '101'
  u8 RESPOND, FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, CamExtPaging& r, const Ctx&) {
  if (!w.need(2)) return;
  w.u(r.RESPOND, "RESPOND", 1);
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  if (r.FREQ_INCL) {
    if (!w.need(16)) return;
    w.u(r.BAND_CLASS, "BAND_CLASS", 5);
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  pilot_pn_list(w, r.PILOT_PN);
}

struct FC_CAM {
  u8 ASSIGN_MODE, ADD_RECORD_LEN;
  CamTraffic m000;
  CamPaging m001;
  AnalogControl m010;
  AnalogVoice m011;
  CamExtTraffic m100;
  CamExtPaging m101;
};

template <class W>
void layout(W& w, FC_CAM& r, const Ctx& c) {
  // The message was withdrawn with P_REV 8: not decoded, and nothing to show.
  if (c.p_rev >= 8) {
    (void)w.reject(Rc::count);
    return;
  }
  if (!w.need(6)) return;
  w.u(r.ASSIGN_MODE, "ASSIGN_MODE", 3);
  w.u(r.ADD_RECORD_LEN, "ADD_RECORD_LEN", 3);
  const std::uint64_t len = r.ADD_RECORD_LEN * 8u;
  switch (r.ASSIGN_MODE) {
    case 0: w.sized("CAM_ASSIGN_MODE_000", "FC_CAM_CAM_ASSIGN_MODE_000", r.m000, len, c); break;
    case 1: w.sized("CAM_ASSIGN_MODE_001", "FC_CAM_CAM_ASSIGN_MODE_001", r.m001, len, c); break;
    case 2: w.sized("CAM_ASSIGN_MODE_010", "FC_CAM_CAM_ASSIGN_MODE_010", r.m010, len, c); break;
    case 3: w.sized("CAM_ASSIGN_MODE_011", "FC_CAM_CAM_ASSIGN_MODE_011", r.m011, len, c); break;
    case 4: w.sized("CAM_ASSIGN_MODE_100", "FC_CAM_CAM_ASSIGN_MODE_100", r.m100, len, c); break;
    case 5: w.sized("CAM_ASSIGN_MODE_101", "FC_CAM_CAM_ASSIGN_MODE_101", r.m101, len, c); break;
    default: break;   // '110' and '111' are reserved: header only
  }
}

// ---------------------------------------------------------------------------------------------
// Extended Channel Assignment Message.

struct EcamPilot {   // one active set pilot of mode '000'
  u16 PILOT_PN;
  u8 PWR_COMB_IND, CODE_CHAN;
};
template <class W>
void layout(W& w, EcamPilot& r, const Ctx&) {
  if (!w.need(18)) return;
  w.u(r.PILOT_PN, "PILOT_PN", 9);
  w.u(r.PWR_COMB_IND, "PWR_COMB_IND", 1);
  w.u(r.CODE_CHAN, "CODE_CHAN", 8);
}

struct EcamTraffic {   // '000'
  u8 FREQ_INCL, DEFAULT_CONFIG, BYPASS_ALERT_ANSWER, NUM_PILOTS, GRANTED_MODE, FRAME_OFFSET, ENCRYPT_MODE;
  u8 BAND_CLASS;
  u16 CDMA_FREQ;
  PoolArray<EcamPilot> PILOTs;
  u8 FOR_FCH_RC, REV_FCH_RC, FPC_FCH_INIT_SETPT, FPC_SUBCHAN_GAIN, RLGAIN_ADJ, FPC_FCH_FER, FPC_FCH_MIN_SETPT,
      FPC_FCH_MAX_SETPT, REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
  u8 MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK, PLCM_TYPE_INCL, PLCM_TYPE;
  Bytes PLCM_39;
};
template <class W>
void layout(W& w, EcamTraffic& r, const Ctx& c) {
  if (!w.need(17)) return;
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  w.u(r.DEFAULT_CONFIG, "DEFAULT_CONFIG", 3);
  w.u(r.BYPASS_ALERT_ANSWER, "BYPASS_ALERT_ANSWER", 1);
  w.skip(1);
  w.u(r.NUM_PILOTS, "NUM_PILOTS", 3);
  w.u(r.GRANTED_MODE, "GRANTED_MODE", 2);
  w.u(r.FRAME_OFFSET, "FRAME_OFFSET", 4);
  w.u(r.ENCRYPT_MODE, "ENCRYPT_MODE", 2);
  if (r.FREQ_INCL) {
    if (!w.need(16)) return;
    w.u(r.BAND_CLASS, "BAND_CLASS", 5);
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  if (!w.counted("PILOTs", "FC_ECAM_ECAM_ASSIGN_MODE_000_PILOTs", r.PILOTs, r.NUM_PILOTS + 1u, c)) return;
  if (c.p_rev < 6) return;
  // The fundamental channel's radio configurations and outer loop power control of IS-2000.
  if (!w.need(49)) return;
  w.u(r.FOR_FCH_RC, "FOR_FCH_RC", 5);
  w.u(r.REV_FCH_RC, "REV_FCH_RC", 5);
  w.u(r.FPC_FCH_INIT_SETPT, "FPC_FCH_INIT_SETPT", 8);
  w.u(r.FPC_SUBCHAN_GAIN, "FPC_SUBCHAN_GAIN", 5);
  w.u(r.RLGAIN_ADJ, "RLGAIN_ADJ", 4);
  w.u(r.FPC_FCH_FER, "FPC_FCH_FER", 5);
  w.u(r.FPC_FCH_MIN_SETPT, "FPC_FCH_MIN_SETPT", 8);
  w.u(r.FPC_FCH_MAX_SETPT, "FPC_FCH_MAX_SETPT", 8);
  w.u(r.REV_FCH_GATING_MODE, "REV_FCH_GATING_MODE", 1);
  if (r.REV_FCH_GATING_MODE) {
    if (!w.need(1)) return;
    w.u(r.REV_PWR_CNTL_DELAY_INCL, "REV_PWR_CNTL_DELAY_INCL", 1);
    if (r.REV_PWR_CNTL_DELAY_INCL) {
      if (!w.need(2)) return;
      w.u(r.REV_PWR_CNTL_DELAY, "REV_PWR_CNTL_DELAY", 2);
    }
  }
  encryption_fields(w, r, c);
  integrity_and_plcm_fields(w, r, c);
}

struct EcamPaging {   // '001'
  u8 RESPOND, FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 NUM_PILOTS;
  PoolArray<u16> PILOT_PN;
};
template <class W>
void layout(W& w, EcamPaging& r, const Ctx&) {
  if (!w.need(2)) return;
  w.u(r.RESPOND, "RESPOND", 1);
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  if (r.FREQ_INCL) {
    if (!w.need(16)) return;
    w.u(r.BAND_CLASS, "BAND_CLASS", 5);
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  if (!w.need(6)) return;
  w.u(r.NUM_PILOTS, "NUM_PILOTS", 6);
  w.scalars("PILOT_PN", r.PILOT_PN, r.NUM_PILOTS + 1u, 9);
}

// Mode '100', the IS-2000 traffic channel assignment. The channels assigned (CH_IND) pick the
// layout of CH_RECORD_FIELDS, a record of CH_RECORD_LEN octets holding the power control set
// points and one pilot record per active set pilot.

// The type-specific part of an additional pilot record (C.S0005 3.7.2.3.2.21): transmit
// diversity power for a common pilot with OTD, the spreading-rate-3 pilot layout for a 3X
// common pilot. The record is RECORD_LEN octets whatever the type reads.
struct AddPilotRec {
  u8 OTD_POWER_LEVEL, SR3_PRIMARY_PILOT, SR3_PILOT_POWER1, SR3_PILOT_POWER2;
};
struct AddPilotCtx : Ctx {
  u8 pilot_rec_type;
};
template <class W>
void layout(W& w, AddPilotRec& r, const AddPilotCtx& c) {
  switch (c.pilot_rec_type) {
    case 0:
      if (!w.need(2)) return;
      w.u(r.OTD_POWER_LEVEL, "OTD_POWER_LEVEL", 2);
      break;
    case 3:
      if (!w.need(8)) return;
      w.u(r.SR3_PRIMARY_PILOT, "SR3_PRIMARY_PILOT", 2);
      w.u(r.SR3_PILOT_POWER1, "SR3_PILOT_POWER1", 3);
      w.u(r.SR3_PILOT_POWER2, "SR3_PILOT_POWER2", 3);
      break;
    default:
      break;
  }
}

// One active set pilot: the code channels present are those of the channels assigned, which
// the channel record hands down as CH_IND.
struct Am4PilotRec {
  u16 PILOT_PN;
  u8 ADD_PILOT_REC_INCL, PILOT_REC_TYPE, RECORD_LEN;
  AddPilotRec ADD_PILOT_REC;
  u8 PWR_COMB_IND;
  u16 CODE_CHAN_FCH;
  u8 QOF_MASK_ID_FCH;
  u16 CODE_CHAN_DCCH;
  u8 QOF_MASK_ID_DCCH;
};
struct ChIndCtx : Ctx {
  u8 ch_ind;
};
template <class W>
void layout(W& w, Am4PilotRec& r, const ChIndCtx& c) {
  const unsigned ch_ind = c.ch_ind;
  if (!w.need(10)) return;
  w.u(r.PILOT_PN, "PILOT_PN", 9);
  w.u(r.ADD_PILOT_REC_INCL, "ADD_PILOT_REC_INCL", 1);
  if (r.ADD_PILOT_REC_INCL) {
    if (!w.need(6)) return;
    w.u(r.PILOT_REC_TYPE, "PILOT_REC_TYPE", 3);
    w.u(r.RECORD_LEN, "RECORD_LEN", 3);
    AddPilotCtx ac;
    static_cast<Ctx&>(ac) = c;
    ac.pilot_rec_type = r.PILOT_REC_TYPE;
    if (!w.sized("ADD_PILOT_REC", "FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs_ADD_PILOT_REC",
                 r.ADD_PILOT_REC, r.RECORD_LEN * 8u, ac))
      return;
  }
  if (!w.need(1)) return;
  w.u(r.PWR_COMB_IND, "PWR_COMB_IND", 1);
  if (ch_ind & 1) {   // fundamental channel
    if (!w.need(13)) return;
    w.u(r.CODE_CHAN_FCH, "CODE_CHAN_FCH", 11);
    w.u(r.QOF_MASK_ID_FCH, "QOF_MASK_ID_FCH", 2);
  }
  if (ch_ind & 2) {   // dedicated control channel
    if (!w.need(13)) return;
    w.u(r.CODE_CHAN_DCCH, "CODE_CHAN_DCCH", 11);
    w.u(r.QOF_MASK_ID_DCCH, "QOF_MASK_ID_DCCH", 2);
  }
}

struct Am4ChRecord {
  u8 FPC_FCH_INIT_SETPT, FPC_DCCH_INIT_SETPT, FPC_PRI_CHAN, FPC_FCH_FER, FPC_FCH_MIN_SETPT, FPC_FCH_MAX_SETPT;
  u8 FPC_DCCH_FER, FPC_DCCH_MIN_SETPT, FPC_DCCH_MAX_SETPT;
  PoolArray<Am4PilotRec> PILOT_RECs;
};
// CH_IND and NUM_PILOTS come from the mode record.
struct Am4Ctx : Ctx {
  u8 ch_ind, num_pilots;
};
template <class W>
void layout(W& w, Am4ChRecord& r, const Am4Ctx& c) {
  const auto& mc = c;
  switch (mc.ch_ind) {
    case 1:
      if (!w.need(29)) return;
      w.u(r.FPC_FCH_INIT_SETPT, "FPC_FCH_INIT_SETPT", 8);
      w.u(r.FPC_FCH_FER, "FPC_FCH_FER", 5);
      w.u(r.FPC_FCH_MIN_SETPT, "FPC_FCH_MIN_SETPT", 8);
      w.u(r.FPC_FCH_MAX_SETPT, "FPC_FCH_MAX_SETPT", 8);
      break;
    case 2:
      if (!w.need(29)) return;
      w.u(r.FPC_DCCH_INIT_SETPT, "FPC_DCCH_INIT_SETPT", 8);
      w.u(r.FPC_DCCH_FER, "FPC_DCCH_FER", 5);
      w.u(r.FPC_DCCH_MIN_SETPT, "FPC_DCCH_MIN_SETPT", 8);
      w.u(r.FPC_DCCH_MAX_SETPT, "FPC_DCCH_MAX_SETPT", 8);
      break;
    case 3:
      if (!w.need(59)) return;
      w.u(r.FPC_FCH_INIT_SETPT, "FPC_FCH_INIT_SETPT", 8);
      w.u(r.FPC_DCCH_INIT_SETPT, "FPC_DCCH_INIT_SETPT", 8);
      w.u(r.FPC_PRI_CHAN, "FPC_PRI_CHAN", 1);
      w.u(r.FPC_FCH_FER, "FPC_FCH_FER", 5);
      w.u(r.FPC_FCH_MIN_SETPT, "FPC_FCH_MIN_SETPT", 8);
      w.u(r.FPC_FCH_MAX_SETPT, "FPC_FCH_MAX_SETPT", 8);
      w.u(r.FPC_DCCH_FER, "FPC_DCCH_FER", 5);
      w.u(r.FPC_DCCH_MIN_SETPT, "FPC_DCCH_MIN_SETPT", 8);
      w.u(r.FPC_DCCH_MAX_SETPT, "FPC_DCCH_MAX_SETPT", 8);
      break;
    default:
      return;   // '00' assigns no fundicated channel here
  }
  ChIndCtx pc;
  static_cast<Ctx&>(pc) = c;
  pc.ch_ind = mc.ch_ind;
  w.counted("PILOT_RECs", "FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS_PILOT_RECs", r.PILOT_RECs,
            mc.num_pilots + 1u, pc);
}

struct EcamTrafficIs2000 {   // '100'
  u8 FREQ_INCL, BAND_CLASS;
  u16 CDMA_FREQ;
  u8 BYPASS_ALERT_ANSWER, GRANTED_MODE, SR_ID_RESTORE, SR_ID_RESTORE_BITMAP, DEFAULT_CONFIG, FOR_RC, REV_RC;
  u8 FRAME_OFFSET, ENCRYPT_MODE, FPC_SUBCHAN_GAIN, RLGAIN_ADJ, NUM_PILOTS, CH_IND, CH_RECORD_LEN;
  Am4ChRecord CH_RECORD_FIELDS;
  u8 REV_FCH_GATING_MODE, REV_PWR_CNTL_DELAY_INCL, REV_PWR_CNTL_DELAY;
  u8 D_SIG_ENCRYPT_MODE, ENC_KEY_SIZE, C_SIG_ENCRYPT_MODE_INCL, C_SIG_ENCRYPT_MODE;
  u8 F3XFL_1XRL_INCL, F1XRL_FREQ_OFFSET;
  u8 MSG_INT_INFO_INCL, CHANGE_KEYS, USE_UAK, PLCM_TYPE_INCL, PLCM_TYPE;
  Bytes PLCM_39;
  u8 SYNC_ID_INCL, SYNC_ID_LEN;
  Bytes SYNC_ID;
};
// SR_ID_RESTORE '111' restores the services of a bitmap instead of one service.
constexpr u8 kSrIdRestoreBitmap = 7;
template <class W>
void layout(W& w, EcamTrafficIs2000& r, const Ctx& c) {
  if (!w.need(1)) return;
  w.u(r.FREQ_INCL, "FREQ_INCL", 1);
  if (r.FREQ_INCL) {
    if (!w.need(16)) return;
    w.u(r.BAND_CLASS, "BAND_CLASS", 5);
    w.u(r.CDMA_FREQ, "CDMA_FREQ", 11);
  }
  if (!w.need(3)) return;
  w.u(r.BYPASS_ALERT_ANSWER, "BYPASS_ALERT_ANSWER", 1);
  w.u(r.GRANTED_MODE, "GRANTED_MODE", 2);
  if (c.p_rev >= 9) {
    if (!w.need(3)) return;
    w.u(r.SR_ID_RESTORE, "SR_ID_RESTORE", 3);
    if (r.SR_ID_RESTORE == kSrIdRestoreBitmap) {
      if (!w.need(6)) return;
      w.u(r.SR_ID_RESTORE_BITMAP, "SR_ID_RESTORE_BITMAP", 6);
    }
  }
  if (!w.need(38)) return;
  w.u(r.DEFAULT_CONFIG, "DEFAULT_CONFIG", 3);
  w.u(r.FOR_RC, "FOR_RC", 5);
  w.u(r.REV_RC, "REV_RC", 5);
  w.u(r.FRAME_OFFSET, "FRAME_OFFSET", 4);
  w.u(r.ENCRYPT_MODE, "ENCRYPT_MODE", 2);
  w.u(r.FPC_SUBCHAN_GAIN, "FPC_SUBCHAN_GAIN", 5);
  w.u(r.RLGAIN_ADJ, "RLGAIN_ADJ", 4);
  w.u(r.NUM_PILOTS, "NUM_PILOTS", 3);
  w.u(r.CH_IND, "CH_IND", 2);
  w.u(r.CH_RECORD_LEN, "CH_RECORD_LEN", 5);
  Am4Ctx mc;
  static_cast<Ctx&>(mc) = c;
  mc.ch_ind = r.CH_IND;
  mc.num_pilots = r.NUM_PILOTS;
  if (!w.sized("CH_RECORD_FIELDS", "FC_ECAM_ECAM_ASSIGN_MODE_100_CH_RECORD_FIELDS", r.CH_RECORD_FIELDS,
               r.CH_RECORD_LEN * 8u, mc))
    return;
  if (!w.need(1)) return;
  w.u(r.REV_FCH_GATING_MODE, "REV_FCH_GATING_MODE", 1);
  if (r.REV_FCH_GATING_MODE) {
    if (!w.need(1)) return;
    w.u(r.REV_PWR_CNTL_DELAY_INCL, "REV_PWR_CNTL_DELAY_INCL", 1);
    if (r.REV_PWR_CNTL_DELAY_INCL) {
      if (!w.need(2)) return;
      w.u(r.REV_PWR_CNTL_DELAY, "REV_PWR_CNTL_DELAY", 2);
    }
  }
  encryption_fields(w, r, c);
  if (c.p_rev >= 7) {
    // A 3X forward link may pair with a 1X reverse link on one of its three carriers.
    if (!w.need(1)) return;
    w.u(r.F3XFL_1XRL_INCL, "F3XFL_1XRL_INCL", 1);
    if (r.F3XFL_1XRL_INCL) {
      if (!w.need(2)) return;
      w.u(r.F1XRL_FREQ_OFFSET, "F1XRL_FREQ_OFFSET", 2);
    }
  }
  integrity_and_plcm_fields(w, r, c);
  if (c.p_rev < 9) return;
  if (!w.need(1)) return;
  w.u(r.SYNC_ID_INCL, "SYNC_ID_INCL", 1);
  if (r.SYNC_ID_INCL) {
    if (!w.need(4)) return;
    w.u(r.SYNC_ID_LEN, "SYNC_ID_LEN", 4);
    if (r.SYNC_ID_LEN != 0) {
      if (!w.need(r.SYNC_ID_LEN * 8u)) return;
      w.bits(r.SYNC_ID, "SYNC_ID", r.SYNC_ID_LEN * 8u);
    }
  }
}

struct FC_ECAM {
  u8 ASSIGN_MODE, ADD_RECORD_LEN, RESERVED_2;
  EcamTraffic m000;
  EcamPaging m001;
  AnalogControl m010;
  AnalogVoice m011;
  EcamTrafficIs2000 m100;
};

template <class W>
void layout(W& w, FC_ECAM& r, const Ctx& c) {
  if (!w.need(11)) return;
  // IS-95B moved the record length in front of the mode.
  if (c.p_rev < 5) {
    w.u(r.ASSIGN_MODE, "ASSIGN_MODE", 3);
    w.u(r.ADD_RECORD_LEN, "ADD_RECORD_LEN", 8);
  } else {
    w.u(r.ADD_RECORD_LEN, "ADD_RECORD_LEN", 8);
    w.u(r.ASSIGN_MODE, "ASSIGN_MODE", 3);
  }
  if (c.p_rev >= 11 && (r.ASSIGN_MODE == 4 || r.ASSIGN_MODE == 5)) {
    if (!w.need(5)) return;
    w.u(r.RESERVED_2, "RESERVED_2", 5);
  }
  switch (r.ASSIGN_MODE) {
    case 0: w.sub("ECAM_ASSIGN_MODE_000", "FC_ECAM_ECAM_ASSIGN_MODE_000", r.m000, c); break;
    case 1: w.sub("ECAM_ASSIGN_MODE_001", "FC_ECAM_ECAM_ASSIGN_MODE_001", r.m001, c); break;
    case 2: w.sub("ECAM_ASSIGN_MODE_010", "FC_ECAM_ECAM_ASSIGN_MODE_010", r.m010, c); break;
    case 3: w.sub("ECAM_ASSIGN_MODE_011", "FC_ECAM_ECAM_ASSIGN_MODE_011", r.m011, c); break;
    case 4: w.sub("ECAM_ASSIGN_MODE_100", "FC_ECAM_ECAM_ASSIGN_MODE_100", r.m100, c); break;
    default: break;
  }
}

constexpr BodyOps kCam = body_ops<FC_CAM>("FC_CAM");
constexpr BodyOps kEcam = body_ops<FC_ECAM>("FC_ECAM");

}  // namespace

const BodyOps* cam_body() { return &kCam; }
const BodyOps* ecam_body() { return &kEcam; }

}  // namespace cs

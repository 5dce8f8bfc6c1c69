// Reverse traffic messages that carry information records (C.S0005 2.7.2.3.2): Flash With
// Information (3), whose records run to the end of the message, Status (8) with its one record,
// Status Response (16) behind its qualification information, Extended Flash With Information
// (27) with a connection reference and a count, Device Information (36), and the Base Station
// Status Request (40), which asks for records of the base station's own.
#include "layout/layout.h"
#include "records/reverse_info_records.h"
#include "records/reverse_shared.h"
#include "rev_traffic/message_parts.h"
#include "rev_traffic/tables.h"

namespace cs {
namespace {

using namespace rd_parts;

// ---- Flash With Information Message (3) ---------------------------------------------------

struct RD_FWIM {
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, RD_FWIM& r, const Ctx& c) {
  rev_info_records_to_end(w, r.INFO_RECs, c);
}

// ---- Status Message (8) -------------------------------------------------------------------

// The answer to a Status Request Order of TIA/EIA-95: the one record asked for.
struct RD_STM {
  REV_USER_INFO_REC INFO_REC;
};

template <class W>
void layout(W& w, RD_STM& r, const Ctx& c) {
  w.sub("INFO_REC", "REV_USER_INFO_REC", r.INFO_REC, c);
}

// ---- Extended Flash With Information Message (27) -----------------------------------------

struct RD_EFWIM {
  u8 CON_REF_INCL, CON_REF, NUM_REC;
  PoolArray<REV_USER_INFO_REC> INFO_RECs;
};

template <class W>
void layout(W& w, RD_EFWIM& r, const Ctx& c) {
  w(F(CON_REF_INCL, 1));
  if (r.CON_REF_INCL) w(F(CON_REF, 8));
  w(F(NUM_REC, 4));
  rev_info_records(w, r.INFO_RECs, r.NUM_REC, c);
}

// ---- Base Station Status Request Message (40) ---------------------------------------------

// A request record: RECORD_TYPE and RECORD_LENGTH (octets), then fields of the type. The
// fields of the request types are not decoded here: a record that carries any is refused
// (result 1) after its length, rather than passed over unread.
struct BssReqRecord {
  u8 RECORD_TYPE, RECORD_LENGTH;
};

template <class W>
void layout(W& w, BssReqRecord& r, const Ctx&) {
  w(F(RECORD_TYPE, 8), F(RECORD_LENGTH, 8));
  if (r.RECORD_LENGTH != 0) (void)w.reject(Rc::count);
}

struct RD_BSSREQM {
  QualInfo QUAL_INFO;
  u8 NUM_RECORDS;
  PoolArray<BssReqRecord> RECORDs;
};

template <class W>
void layout(W& w, RD_BSSREQM& r, const Ctx& c) {
  layout(w, r.QUAL_INFO, c);
  w(F(NUM_RECORDS, 4));
  w.records("RECORDs", r.RECORDs, r.NUM_RECORDS, c);
}

}  // namespace

Rows rd_inforec_rows() {
  static constexpr MessageRow rows[] = {
      {3, "FWIM", body_ops<RD_FWIM>()},
      {8, "STM", body_ops<RD_STM>()},
      {16, "STRPM", body_ops<rev::StatusResponse>()},
      {27, "EFWIM", body_ops<RD_EFWIM>()},
      {36, "DIM", body_ops<rev::DeviceInformation>()},
      {40, "BSSREQM", body_ops<RD_BSSREQM>()},
  };
  return rows;
}

}  // namespace cs

// The access channel's message table, by the families that declare its rows.
#pragma once
#include "layout/table.h"

namespace cs {

Rows rc_call_setup_rows();   // RGM, ORM, PRM, RCNM
Rows rc_response_rows();     // ORDM, DBM, AUCRM, STRPM, TACM, PACNM, ESTRPM, DIM
Rows rc_security_rows();     // SMRM, AURSPM, AURSYNM, REM

}  // namespace cs

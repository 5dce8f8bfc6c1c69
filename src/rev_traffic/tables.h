// The reverse traffic channel's message table, by the families that declare its rows.
#pragma once
#include "layout/table.h"

namespace cs {

Rows rd_order_rows();     // ORDM
Rows rd_inforec_rows();   // FWIM, STM, STRPM, EFWIM, DIM, BSSREQM
Rows rd_pilot_rows();     // PSMM, PMRM, HOCM, SCRM, CFSRSM, CFSRPM, PPSMM, OLRM, EPSMM, EHOCM, COTRM
Rows rd_call_rows();      // DBM, BDTMFM, ORCM, PRSM, SRQM, SRPM, SCCM, SOCM, TACM, RRM, ERRM, EOM, RRRM,
                          // UZURM, CLCM, ITBSPMRM
Rows rd_security_rows();  // AUCRM, SMRM, AURSYNM, AURSPM

// The whole table.
const MessageTable& rd_messages();

}  // namespace cs

#include "api/names.h"

#include <array>

namespace cs {

namespace {

struct Name {
  std::uint8_t type;
  std::string_view name;
};

constexpr Name kSync[] = {{0, "MSG_0"}, {1, "OVN_SCH_MSG_ID_SCHM"}};

constexpr Name kPaging[] = {
    {0, "OVN_DPCH_MSG_ID_NULL"},          {1, "OVN_DPCH_MSG_ID_SPM"},
    {2, "OVN_DPCH_MSG_ID_APM"},           {3, "OVN_DPCH_MSG_ID_NLM"},
    {4, "OVN_DPCH_MSG_ID_CCLM"},          {5, "OVN_DPCH_MSG_ID_SPGM"},
    {6, "OVN_DPCH_MSG_ID_PGM"},           {7, "OVN_DPCH_MSG_ID_ORDM"},
    {8, "OVN_DPCH_MSG_ID_CAM"},           {9, "OVN_DPCH_MSG_ID_DBM"},
    {10, "OVN_DPCH_MSG_ID_AUCM"},         {11, "OVN_DPCH_MSG_ID_SSDUM"},
    {12, "OVN_DPCH_MSG_ID_FNM"},          {13, "OVN_DPCH_MSG_ID_ESPM"},
    {14, "OVN_DPCH_MSG_ID_ENLM"},         {15, "OVN_DPCH_MSG_ID_STRQM"},
    {16, "OVN_DPCH_MSG_ID_SRDM"},         {17, "OVN_DPCH_MSG_ID_GPM"},
    {18, "OVN_DPCH_MSG_ID_GSRDM"},        {19, "OVN_DPCH_MSG_ID_TASM"},
    {20, "OVN_DPCH_MSG_ID_PACAM"},        {21, "OVN_DPCH_MSG_ID_ECAM"},
    {22, "OVN_DPCH_MSG_ID_GNLM"},         {23, "OVN_DPCH_MSG_ID_UZIM"},
    {24, "OVN_DPCH_MSG_ID_PNLM"},         {26, "OVN_DPCH_MSG_ID_EGSRDM"},
    {27, "OVN_DPCH_MSG_ID_ECCLM"},        {28, "OVN_DPCH_MSG_ID_UZRM"},
    {29, "OVN_DPCH_MSG_ID_A41SPM"},       {30, "OVN_DPCH_MSG_ID_MCRRPM"},
    {31, "OVN_DPCH_MSG_ID_A41RANDM"},     {32, "OVN_DPCH_MSG_ID_EAPM"},
    {33, "OVN_DPCH_MSG_ID_UNLM"},         {34, "OVN_DPCH_MSG_ID_SMCM"},
    {35, "OVN_DPCH_MSG_ID_UPM_SEG_UN"},   {36, "OVN_DPCH_MSG_ID_UPM_SEG_FIRST"},
    {37, "OVN_DPCH_MSG_ID_UPM_SEG_MID"},  {38, "OVN_DPCH_MSG_ID_UPM_SEG_FINAL"},
    {39, "OVN_DPCH_MSG_ID_MAPSCHM"},      {40, "OVN_DPCH_MSG_ID_MAPSIM"},
    {41, "OVN_DPCH_MSG_ID_MAPL3M"},       {42, "OVN_DPCH_MSG_ID_RTASM"},
    {43, "OVN_DPCH_MSG_ID_MAPFRM"},       {44, "OVN_DPCH_MSG_ID_AUREQM"},
    {45, "OVN_DPCH_MSG_ID_BSPM"},
};

constexpr Name kAccess[] = {
    {0, "MSG_0"},
    {1, "OVN_DACH_MSG_ID_RGM"},     {2, "OVN_DACH_MSG_ID_ORDM"},    {3, "OVN_DACH_MSG_ID_DBM"},
    {4, "OVN_DACH_MSG_ID_ORM"},     {5, "OVN_DACH_MSG_ID_PRM"},     {6, "OVN_DACH_MSG_ID_AUCRM"},
    {7, "OVN_DACH_MSG_ID_STRPM"},   {8, "OVN_DACH_MSG_ID_TACM"},    {9, "OVN_DACH_MSG_ID_PACNM"},
    {10, "OVN_DACH_MSG_ID_ESTRPM"}, {13, "OVN_DACH_MSG_ID_DIM"},    {14, "OVN_DACH_MSG_ID_SMRM"},
    {21, "OVN_DACH_MSG_ID_AURSPM"}, {22, "OVN_DACH_MSG_ID_AURSYNM"}, {23, "OVN_DACH_MSG_ID_RCNM"},
    {24, "OVN_DACH_MSG_ID_REM"},
};

constexpr Name kFwdTraffic[] = {
    {0, "OVN_FDTCH_MSG_TYPE_NULL"},     {1, "OVN_FDTCH_MSG_TYPE_ORDRM"},    {2, "OVN_FDTCH_MSG_TYPE_AUCM"},
    {3, "OVN_FDTCH_MSG_TYPE_AWIM"},     {4, "OVN_FDTCH_MSG_TYPE_DBM"},      {5, "OVN_FDTCH_MSG_TYPE_HDM"},
    {6, "OVN_FDTCH_MSG_TYPE_AHDM"},     {7, "OVN_FDTCH_MSG_TYPE_ITSPM"},    {8, "OVN_FDTCH_MSG_TYPE_NLUM"},
    {9, "OVN_FDTCH_MSG_TYPE_BDTMFM"},   {10, "OVN_FDTCH_MSG_TYPE_PCNPM"},   {11, "OVN_FDTCH_MSG_TYPE_RTPM"},
    {12, "OVN_FDTCH_MSG_TYPE_STPM"},    {13, "OVN_FDTCH_MSG_TYPE_SSDUM"},   {14, "OVN_FDTCH_MSG_TYPE_FWIM"},
    {15, "OVN_FDTCH_MSG_TYPE_MSRM"},    {16, "OVN_FDTCH_MSG_TYPE_STRQM"},   {17, "OVN_FDTCH_MSG_TYPE_EHDM"},
    {18, "OVN_FDTCH_MSG_TYPE_SRQM"},    {19, "OVN_FDTCH_MSG_TYPE_SRPM"},    {20, "OVN_FDTCH_MSG_TYPE_SCM"},
    {21, "OVN_FDTCH_MSG_TYPE_SOCM"},    {22, "OVN_FDTCH_MSG_TYPE_TASM"},    {23, "OVN_FDTCH_MSG_TYPE_SRDM"},
    {24, "OVN_FDTCH_MSG_TYPE_SCAM"},    {25, "OVN_FDTCH_MSG_TYPE_PCNM"},    {26, "OVN_FDTCH_MSG_TYPE_ENLUM"},
    {27, "OVN_FDTCH_MSG_TYPE_CFSRQM"},  {28, "OVN_FDTCH_MSG_TYPE_CFSCNM"},  {29, "OVN_FDTCH_MSG_TYPE_PUFM"},
    {30, "OVN_FDTCH_MSG_TYPE_PUFCM"},   {31, "OVN_FDTCH_MSG_TYPE_GHDM"},    {32, "OVN_FDTCH_MSG_TYPE_RAM"},
    {33, "OVN_FDTCH_MSG_TYPE_ERM"},     {34, "OVN_FDTCH_MSG_TYPE_UHDM"},    {35, "OVN_FDTCH_MSG_TYPE_ESCAM"},
    {36, "OVN_FDTCH_MSG_TYPE_MABOPM"},  {37, "OVN_FDTCH_MSG_TYPE_UZRM"},    {38, "OVN_FDTCH_MSG_TYPE_UZUM"},
    {39, "OVN_FDTCH_MSG_TYPE_CLAM"},    {40, "OVN_FDTCH_MSG_TYPE_EAWIM"},   {42, "OVN_FDTCH_MSG_TYPE_EFWIM"},
    {43, "OVN_FDTCH_MSG_TYPE_SMCM"},    {49, "OVN_FDTCH_MSG_TYPE_BSSRSPM"}, {50, "OVN_FDTCH_MSG_TYPE_AUREQM"},
    {51, "OVN_FDTCH_MSG_TYPE_RATCHGM"}, {52, "OVN_FDTCH_MSG_TYPE_ITBSPM"},  {56, "OVN_FDTCH_MSG_TYPE_ACK"},
    {57, "OVN_FDTCH_MSG_TYPE_RESET"},
};

constexpr Name kRevTraffic[] = {
    {0, "MSG_0"},
    {1, "OVN_RDTCH_MSG_TYPE_ORDM"},     {2, "OVN_RDTCH_MSG_TYPE_AUCRM"},    {3, "OVN_RDTCH_MSG_TYPE_FWIM"},
    {4, "OVN_RDTCH_MSG_TYPE_DBM"},      {5, "OVN_RDTCH_MSG_TYPE_PSMM"},     {6, "OVN_RDTCH_MSG_TYPE_PMRM"},
    {7, "OVN_RDTCH_MSG_TYPE_BDTMFM"},   {8, "OVN_RDTCH_MSG_TYPE_STM"},      {9, "OVN_RDTCH_MSG_TYPE_ORCM"},
    {10, "OVN_RDTCH_MSG_TYPE_HOCM"},    {11, "OVN_RDTCH_MSG_TYPE_PRSM"},    {12, "OVN_RDTCH_MSG_TYPE_SRQM"},
    {13, "OVN_RDTCH_MSG_TYPE_SRPM"},    {14, "OVN_RDTCH_MSG_TYPE_SCCM"},    {15, "OVN_RDTCH_MSG_TYPE_SOCM"},
    {16, "OVN_RDTCH_MSG_TYPE_STRPM"},   {17, "OVN_RDTCH_MSG_TYPE_TACM"},    {18, "OVN_RDTCH_MSG_TYPE_SCRM"},
    {19, "OVN_RDTCH_MSG_TYPE_CFSRSM"},  {20, "OVN_RDTCH_MSG_TYPE_CFSRPM"},  {21, "OVN_RDTCH_MSG_TYPE_PPSMM"},
    {22, "OVN_RDTCH_MSG_TYPE_OLRM"},    {23, "OVN_RDTCH_MSG_TYPE_RRM"},     {24, "OVN_RDTCH_MSG_TYPE_ERRM"},
    {26, "OVN_RDTCH_MSG_TYPE_EOM"},     {27, "OVN_RDTCH_MSG_TYPE_EFWIM"},   {28, "OVN_RDTCH_MSG_TYPE_EPSMM"},
    {29, "OVN_RDTCH_MSG_TYPE_EHOCM"},   {30, "OVN_RDTCH_MSG_TYPE_RRRM"},    {31, "OVN_RDTCH_MSG_TYPE_SMRM"},
    {34, "OVN_RDTCH_MSG_TYPE_UZURM"},   {35, "OVN_RDTCH_MSG_TYPE_CLCM"},    {36, "OVN_RDTCH_MSG_TYPE_DIM"},
    {40, "OVN_RDTCH_MSG_TYPE_BSSREQM"}, {41, "OVN_RDTCH_MSG_TYPE_COTRM"},   {42, "OVN_RDTCH_MSG_TYPE_AURSYNM"},
    {43, "OVN_RDTCH_MSG_TYPE_AURSPM"},  {44, "OVN_RDTCH_MSG_TYPE_ITBSPMRM"}, {56, "OVN_RDTCH_MSG_TYPE_ACK"},
    {57, "OVN_RDTCH_MSG_TYPE_RESET"},   {58, "OVN_RDTCH_MSG_TYPE_RRMM"},    {59, "OVN_RDTCH_MSG_TYPE_ERRMM"},
    {60, "OVN_RDTCH_MSG_TYPE_RRRMM"},
};

// Dense 256-entry tables per channel, built at compile time from the lists above.
using Table = std::array<std::string_view, 256>;

template <std::size_t N>
constexpr Table dense(const Name (&names)[N]) {
  Table t{};
  for (const Name& n : names) t[n.type] = n.name;
  return t;
}

constexpr Table kTables[6] = {Table{}, dense(kSync), dense(kPaging), dense(kAccess), dense(kFwdTraffic),
                              dense(kRevTraffic)};

}  // namespace

std::string_view message_name(int channel, std::uint8_t type) {
  if (channel < 1 || channel > 5) return {};
  return kTables[channel][type];
}

std::string summary_text(int channel, std::uint8_t type) {
  const std::string_view n = message_name(channel, type);
  if (!n.empty()) return std::string(n);
  return "unknown message: msg id = " + std::to_string(static_cast<unsigned>(type));
}

}  // namespace cs

/* The public header compiles as C and the shared library's C entry points answer. */
#include <stdio.h>
#include <string.h>

#include "cdmaSorrelin.h"

int main(void) {
  static const unsigned char sync_msg[] = {0x01, 0x05, 0x01, 0x20, 0x62, 0x00, 0x08, 0x4e, 0x39,
                                           0x01, 0x67, 0xa5, 0xfb, 0xcd, 0x15, 0x25, 0x29, 0xcc,
                                           0x47, 0x28, 0x06, 0x44, 0x44, 0x45, 0xb2};
  static char out[8192];
  out[0] = '\0';
  if (ovnDecodeDetails(out, 1, 5, SORRELIN_FC_SCH, sync_msg, sizeof sync_msg) != SORRELIN_OK) return 1;
  if (strstr(out, "   SID = 4145\r\n") == NULL) return 2;
  if (ovnDecodeSummary(out, 1, 5, SORRELIN_FC_SCH, sync_msg, sizeof sync_msg) != 0) return 3;
  if (strcmp(out, "OVN_SCH_MSG_ID_SCHM") != 0) return 4;
  puts("ok");
  return 0;
}

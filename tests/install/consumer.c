/* Decodes one sync channel message through the bounded C call and checks the text. */
#include <cdmaSorrelin.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  static const unsigned char msg[] = {0x01, 0x05, 0x01, 0x20, 0x62, 0x00, 0x08, 0x4e, 0x39, 0x01, 0x67, 0xa5, 0xfb,
                                      0xcd, 0x15, 0x25, 0x29, 0xcc, 0x47, 0x28, 0x06, 0x44, 0x44, 0x45, 0xb2};
  char text[4096];
  size_t needed = 0;
  int rc = sorrelin_details(text, sizeof text, &needed, 1, 5, SORRELIN_FC_SCH, msg, sizeof msg);
  if (rc != SORRELIN_OK || needed != strlen(text) + 1 || strstr(text, "   SID = 4145\r\n") == NULL) {
    fprintf(stderr, "unexpected result %d:\n%s\n", rc, text);
    return 1;
  }
  puts("C consumer: decoded");
  return 0;
}

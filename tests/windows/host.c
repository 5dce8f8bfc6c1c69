/* A host as the library's real hosts are: it loads the library by name at run time, looks up
 * its exports by their undecorated names and decodes a capture file (one message per line,
 * "CHANNEL P_REV [BAND_CLASS] HEX"), writing for each message its summary, a line end, and the
 * detail text, then a block rendering. Built for Windows it loads cdmaSorrelin.dll; built for
 * Linux, the shared library named on the command line; both outputs must be equal byte for
 * byte. Exits 1 when an export is missing or a line cannot be read. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <windows.h>
typedef HMODULE Lib;
static Lib open_lib(const char* name) { return LoadLibraryA(name); }
static void* symbol(Lib l, const char* name) { return (void*)GetProcAddress(l, name); }
#else
#include <dlfcn.h>
typedef void* Lib;
static Lib open_lib(const char* name) { return dlopen(name, RTLD_NOW); }
static void* symbol(Lib l, const char* name) { return dlsym(l, name); }
#endif

typedef int (*DetailsFn)(char*, unsigned char, unsigned char, int, const unsigned char*, unsigned int);
typedef int (*BlockFn)(unsigned char*, unsigned int, char*, unsigned int, unsigned int);
typedef int (*BoundedFn)(char*, size_t, size_t*, unsigned char, unsigned char, int, const unsigned char*, size_t);

static const char* const kExports[] = {
    "ovnDecodeDetails",          "ovnDecodeSummary",          "fnSorrelinFC_SCHBlock",   "fnSorrelinFC_PCHBlock",
    "fnSorrelinRC_ACHBlock",     "fnSorrelinFDTCHBlock",      "fnSorrelinRDTCHBlock",    "fnSorrelinFC_SCHBlockPeer",
    "fnSorrelinFC_PCHBlockPeer", "fnSorrelinRC_ACHBlockPeer", "fnSorrelinFDTCHBlockPeer", "fnSorrelinRDTCHBlockPeer",
    "sorrelin_details",          "sorrelin_summary",          "sorrelin_details_bound"};

static int channel_code(const char* s) {
  static const char* const names[] = {"", "sync", "paging", "access", "ftc", "rtc"};
  for (int i = 1; i <= 5; ++i)
    if (strcmp(s, names[i]) == 0) return i;
  return atoi(s);
}

int main(int argc, char** argv) {
  if (argc != 3) {
    fprintf(stderr, "usage: host LIBRARY CAPTURE_FILE\n");
    return 2;
  }
#if defined(_WIN32)
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  Lib lib = open_lib(argv[1]);
  if (!lib) {
    fprintf(stderr, "cannot load %s\n", argv[1]);
    return 1;
  }
  void* fn[sizeof kExports / sizeof kExports[0]];
  for (size_t i = 0; i < sizeof kExports / sizeof kExports[0]; ++i) {
    fn[i] = symbol(lib, kExports[i]);
    if (!fn[i]) {
      fprintf(stderr, "missing export %s\n", kExports[i]);
      return 1;
    }
  }
  DetailsFn details = (DetailsFn)fn[0], summary = (DetailsFn)fn[1];
  BoundedFn bounded = (BoundedFn)fn[12];
  FILE* in = fopen(argv[2], "r");
  if (!in) return 1;
  static char line[65536], text[1 << 22];
  static unsigned char msg[32768], block[32769];
  while (fgets(line, sizeof line, in)) {
    char* hash = strchr(line, '#');
    if (hash) *hash = '\0';
    char* tok[4];
    int n = 0;
    for (char* t = strtok(line, " \t\r\n"); t && n < 4; t = strtok(NULL, " \t\r\n")) tok[n++] = t;
    if (n < 3) continue;
    const int channel = channel_code(tok[0]);
    const unsigned char p_rev = (unsigned char)atoi(tok[1]);
    const unsigned char band = n == 4 ? (unsigned char)atoi(tok[2]) : 0;
    const char* hex = tok[n - 1];
    size_t len = strlen(hex) / 2;
    for (size_t i = 0; i < len; ++i) {
      unsigned v;
      if (sscanf(hex + 2 * i, "%2x", &v) != 1) return 1;
      msg[i] = (unsigned char)v;
    }
    text[0] = '\0';
    summary(text, band, p_rev, channel, msg, (unsigned)len);
    printf("%s\n", text);
    text[0] = '\0';
    const int rc = details(text, band, p_rev, channel, msg, (unsigned)len);
    printf("%s", text);
    size_t needed = 0;
    const int brc = bounded(text, 64, &needed, band, p_rev, channel, msg, len);
    printf("result %d, bounded %d (%u octets needed)\n", rc, brc, (unsigned)needed);
    /* The block form of the same message: N names the parameter octet after the message. */
    if (channel >= 1 && channel <= 5) {
      block[0] = (unsigned char)(len + 1);
      memcpy(block + 1, msg, len);
      block[len + 1] = p_rev;
      const int b = ((BlockFn)fn[1 + channel])(block, (unsigned)len + 2, text, 0, 0);
      printf("block %d\n%s", b, text);
    }
  }
  fclose(in);
  return 0;
}

/*
 * cdmaSorrelin: decoding of CDMA2000 (TIA/EIA-95, IS-2000) air-interface Layer-3 messages.
 *
 * Every function takes one message exactly as captured: the message-type octet, the body and
 * the channel's CRC (30 bits on the sync, paging and access channels, 16 on the traffic
 * channels, never checked). Texts are NUL-terminated; every line of a detail text ends in
 * CR LF. The functions share one process-wide decoder: calls must not overlap.
 */
#ifndef CDMA_SORRELIN_H
#define CDMA_SORRELIN_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Every function uses the C calling convention (__cdecl on 32-bit Windows). The DLL exports
   them under their undecorated names. */
#if defined(_WIN32)
#if defined(SORRELIN_BUILDING)
#define SORRELIN_API __declspec(dllexport) __cdecl
#else
#define SORRELIN_API __cdecl
#endif
#else
#define SORRELIN_API __attribute__((visibility("default")))
#endif

/* Channel codes. */
#define SORRELIN_FC_SCH 1 /* sync */
#define SORRELIN_FC_PCH 2 /* paging / forward common */
#define SORRELIN_RC_ACH 3 /* access / reverse common */
#define SORRELIN_FDTCH 4  /* forward traffic */
#define SORRELIN_RDTCH 5  /* reverse traffic */

/* Results. */
#define SORRELIN_OK 0        /* decoded */
#define SORRELIN_COUNT 1     /* a count exceeds its record's capacity, a message not decoded under
                                this P_REV, or a null argument */
#define SORRELIN_TRUNCATED 2 /* (bounded calls only) the text did not fit and was cut */
#define SORRELIN_SHORT 3     /* the message ends before a field its layout requires */

/*
 * The bounded calls: the interface for new hosts. They never write more than `capacity`
 * octets to `out`, always end the text with a NUL when `capacity` > 0, and store in `*needed`
 * (when `needed` is not null) the size the whole text needs, NUL included, so that a host can
 * call again with a larger buffer; `out` may be null with `capacity` 0 to ask for the size
 * only. Each call decodes the message afresh into the given buffer (nothing is appended).
 *
 * sorrelin_details writes the detail text that ovnDecodeDetails would append to an empty
 * buffer (CR LF line ends). It returns the decode result (0, 1 or 3; 1 for a null `msg`), or
 * SORRELIN_TRUNCATED when the text was cut to fit `capacity` (always so for a size query).
 * sorrelin_summary writes the message name as ovnDecodeSummary does, with the same results.
 * Like the other functions they share one process-wide decoder: calls must not overlap (C++
 * hosts can use one cs::Decoder per thread, cdmaSorrelin.hpp).
 */
SORRELIN_API int sorrelin_details(char* out, size_t capacity, size_t* needed, unsigned char band_class,
                                  unsigned char p_rev, int channel, const unsigned char* msg, size_t len);
SORRELIN_API int sorrelin_summary(char* out, size_t capacity, size_t* needed, int channel, const unsigned char* msg,
                                  size_t len);

/*
 * The size of buffer (NUL included) that holds the detail text of any message of `len` octets,
 * on any channel, under any P_REV and band class: what sorrelin_details and ovnDecodeDetails
 * (into an empty buffer) write, and what a block function's full rendering writes for a block
 * of `len` octets. Hosts with fixed buffers size them with it; a text never exceeds it.
 *
 * It is SORRELIN_BOUND_BASE + SORRELIN_BOUND_PER_OCTET * len (saturating at SIZE_MAX), set
 * from measurement with a margin of at least three: fuzzing every entry point with the text size
 * per message octet as feedback, and a sweep of every message type of every channel at lengths
 * 2 to 2,048, found at most 569 octets of text (NUL included) for messages of 0 to 3 octets,
 * 329 text octets per message octet above that (12,184 for a 37-octet paging message), falling
 * with the length to 77 per octet at 2,048 octets (156,713 octets of text).
 */
#define SORRELIN_BOUND_BASE 4096u
#define SORRELIN_BOUND_PER_OCTET 1024u
SORRELIN_API size_t sorrelin_details_bound(size_t len);

/*
 * Appends the detail text of the message to the NUL-terminated text in `out` (start with an
 * empty string) and converts every LF of `out` to CR LF. `out` must be large enough for the
 * text: a large message runs to many kilobytes. Returns 1 for a null `out` or `msg`; 0 for an
 * unknown channel (then `out` holds "<unknown channel type>"); otherwise the decode result.
 * Channels whose decoding is not yet available produce no text and return 0 (3 when `len`
 * does not cover the type octet and the CRC).
 */
SORRELIN_API int ovnDecodeDetails(char* out, unsigned char band_class, unsigned char p_rev, int channel,
                                  const unsigned char* msg, unsigned int len);

/*
 * Writes the message's name (by channel and first octet), or "unknown message: msg id = N".
 * Returns 1 for a null `out` or `msg`, else 0.
 */
SORRELIN_API int ovnDecodeSummary(char* out, unsigned char band_class, unsigned char p_rev, int channel,
                                  const unsigned char* msg, unsigned int len);

/*
 * Block entry points. A block is: octet 0 = N, the message from octet 1 (len - 1 octets), and
 * the P_REV to decode with at octet N. Flags bit 0 clear: `out` receives the name, three
 * spaces, CR LF and the detail text (band class 0). Flags bit 0 set, and the *Peer variants:
 * the compact peer rendering into `out` of `outlen` octets (plus one for the NUL).
 * The access channel functions reduce the caller's message-type octet modulo 64 in place.
 * The compact peer rendering is not yet available: it writes the message name only and
 * returns 0.
 */
SORRELIN_API int fnSorrelinFC_SCHBlock(unsigned char* block, unsigned int len, char* out, unsigned int outlen,
                                       unsigned int flags);
SORRELIN_API int fnSorrelinFC_PCHBlock(unsigned char* block, unsigned int len, char* out, unsigned int outlen,
                                       unsigned int flags);
SORRELIN_API int fnSorrelinRC_ACHBlock(unsigned char* block, unsigned int len, char* out, unsigned int outlen,
                                       unsigned int flags);
SORRELIN_API int fnSorrelinFDTCHBlock(unsigned char* block, unsigned int len, char* out, unsigned int outlen,
                                      unsigned int flags);
SORRELIN_API int fnSorrelinRDTCHBlock(unsigned char* block, unsigned int len, char* out, unsigned int outlen,
                                      unsigned int flags);

SORRELIN_API int fnSorrelinFC_SCHBlockPeer(unsigned char* block, unsigned int len, unsigned int unused1,
                                           unsigned int unused2, char* out, unsigned int outlen);
SORRELIN_API int fnSorrelinFC_PCHBlockPeer(unsigned char* block, unsigned int len, unsigned int unused1,
                                           unsigned int unused2, char* out, unsigned int outlen);
SORRELIN_API int fnSorrelinRC_ACHBlockPeer(unsigned char* block, unsigned int len, unsigned int unused1,
                                           unsigned int unused2, char* out, unsigned int outlen);
SORRELIN_API int fnSorrelinFDTCHBlockPeer(unsigned char* block, unsigned int len, unsigned int unused1,
                                          unsigned int unused2, char* out, unsigned int outlen);
SORRELIN_API int fnSorrelinRDTCHBlockPeer(unsigned char* block, unsigned int len, unsigned int unused1,
                                          unsigned int unused2, char* out, unsigned int outlen);

#ifdef __cplusplus
}
#endif

#endif /* CDMA_SORRELIN_H */

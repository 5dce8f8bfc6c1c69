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
 * Block entry points. A block of `len` octets is: octet 0 = N, the message from octet 1
 * (`len` - 1 octets, the block's last octets included) and the P_REV to decode with at octet N
 * (N = 0 takes octet 0 itself; an N at or past `len` gives P_REV 0). The band class is 0. The
 * access channel functions first reduce the caller's message-type octet (octet 1) modulo 64,
 * in place, before either rendering.
 *
 * Full rendering (flags bit 0 clear; `outlen` unused): `out` receives the message name, three
 * spaces, CR LF and the detail text of ovnDecodeDetails, appended to what `out` holds; `out`
 * must be as large as for ovnDecodeDetails. Returns the decode result (1 for a null `out` or
 * `block`), except that fnSorrelinRDTCHBlock returns 0 for a message cut short (3).
 *
 * Peer rendering (flags bit 0 set, and the *Peer functions, whose third and fourth arguments
 * are unused): one line, the message name followed by the peer view of the message,
 *
 *   OVN_FDTCH_MSG_TYPE_SRPM:ACK_SEQ=4,MSG_SEQ=6,ACK_REQ=1,CON_RECs[SERVICE_OPTION=3],FOR_FCH_RC=3,...
 *
 * ":" and "NAME=value" items (decimal) separated by ",", in the order the message carries them:
 *   - the layer-2 acknowledgement fields ACK_SEQ, MSG_SEQ, ACK_REQ and, where the PDU carries
 *     it (paging and access channels), VALID_ACK;
 *   - a (Extended) Channel Assignment: ASSIGN_MODE and, for the Extended Channel Assignment's
 *     mode 0, FOR_FCH_RC, REV_FCH_RC and FPC_FCH_FER;
 *   - a service configuration record, wherever a message carries one: the list
 *     CON_RECs[SERVICE_OPTION=..,...], FOR_FCH_RC, REV_FCH_RC, FOR_DCCH_RC, REV_DCCH_RC, the
 *     lists SCR_FOR_SCHs[FOR_SCH_ID=..,...] and SCR_REV_SCHs[REV_SCH_ID=..,...], each list
 *     closed by "]" and its items separated by ",".
 * The message is decoded over all its octets, the CRC octets included (so a list that runs to
 * the end of the message may take them in, unlike the detail text). The sync channel shows the
 * name alone; on the paging channel the whole first octet is the message type, whatever P_REV:
 * 7 (order: decoded from octet 2 to the end of the message), 8 and 21 (channel assignments),
 * 9 to 12, 15, 16, 19, 20 and 34 (addressed messages) have a view, every other octet shows the
 * name alone. A decode that fails shows the name alone, except on the reverse traffic channel,
 * which shows its record as the decode left it (fields past the failure keep what earlier
 * reverse traffic messages left, as in the detail text).
 *
 * `outlen` is the size of `out`, the NUL included: nothing is written at or past out[outlen].
 * The name is written only when it fits whole with its NUL (else `out` is the empty string);
 * the view follows it, cut at the octet that fills `out`. An `outlen` of 0 writes nothing.
 * Returns 1 for a null `out` or `block`, otherwise the decode result (0, 1 or 3); the sync
 * channel and the paging types without a view give 0, fnSorrelinRDTCHBlock(Peer) gives 0
 * whatever its decode gave, and fnSorrelinFC_PCHBlock(Peer) and fnSorrelinRC_ACHBlock(Peer)
 * return 0 after a peer rendering whatever its result, a null `out` included.
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

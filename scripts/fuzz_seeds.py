#!/usr/bin/env python3
"""Writes fuzzer seeds (the input format of fuzz/common.h: channel, P_REV, band class, switches,
then the message) from capture files and golden files, one file per message and per switch
value the target wants, named by the SHA-1 of its content:

    scripts/fuzz_seeds.py --lib build/debug/libcdmaSorrelin.so --target blocks OUT_DIR FILE...

FILE: capture files ("CHANNEL P_REV [BAND_CLASS] HEX", the band class taken from a "bc=N" in
the comment when the line has no column for it) and golden files (tests/golden/*.ok). A golden
case of a whole message gives its octets (zero padding, then the channel's CRC as zeros). A case
of a message body alone, or of a data burst's contents, is put inside a whole message: the body
behind the header of a whole-message case of the same channel (its message type replaced), the
burst's contents in a Data Burst Message on the traffic channel of its link. Such a wrapped
message is kept only when the library, loaded from --lib, shows the body in it.
"""
import argparse
import ctypes
import hashlib
import os
import re
import sys

CHANNELS = {"sync": 1, "paging": 2, "access": 3, "ftc": 4, "rtc": 5}
CRC = {1: 30, 2: 30, 3: 30, 4: 16, 5: 16}

# Switch values (octet 3) each target gets a seed for; see the targets' header comments.
SWITCHES = {
    "details": [0, 2],            # empty `out`; a line already in it
    "blocks": [4, 5, 4 | 2 | 8 * 20],   # host-built block: full, peer by flag, peer export (outlen 20)
    "bounded": [192, 192 - 8],    # capacity exactly the text's size; 8 octets short
    "decoder": [0, 1],            # default options; every broadcast message
}


def put_value(bits, value, width):
    """Appends `width` bits of a decimal (two's complement) or 0x hex value, right-aligned."""
    if value.startswith("0x"):
        n, nbits = int(value[2:] or "0", 16), 4 * len(value[2:])
    else:
        n, nbits = int(value) & (2**64 - 1), 64
    for i in range(width - 1, -1, -1):
        bits.append((n >> i) & 1 if i < nbits else 0)


class Case:
    def __init__(self, header):
        name, _, params = header[5:].partition(":")
        words = params.split()
        self.name = name
        self.channel = CHANNELS[words[0]]
        self.params = dict(w.split("=", 1) for w in words[1:])
        self.lines = []   # (margin, text)

    def get(self, key, default=None):
        v = self.params.get(key)
        return default if v is None else int(v, 0)

    def bits(self, lines=None):
        out = []
        for margin, text in self.lines if lines is None else lines:
            if not margin:
                continue
            width, colon, value = margin.partition(":")
            if not colon:
                value = text[text.index(" = ") + 3:].split(" ")[0]
            put_value(out, value, int(width))
        hexs = self.params.get("hex", "")
        for i in range(0, len(hexs) - 1, 2):
            put_value(out, "0x" + hexs[i:i + 2], 8)
        return out


def read_cases(path):
    cases, k = [], None
    for line in open(path):
        line = line.rstrip("\n")
        if not line:
            k = None
        elif line.startswith("#"):
            continue
        elif line.startswith("case "):
            k = Case(line)
            cases.append(k)
        elif k is not None and "|" in line:
            margin, _, text = line.partition("|")
            k.lines.append((margin.strip(), text))
    return cases


def octets(bits, crc_bits):
    bits = bits + [0] * crc_bits
    bits += [0] * (-len(bits) % 8)
    return bytes(int("".join(map(str, bits[i:i + 8])), 2) for i in range(0, len(bits), 8))


class Library:
    def __init__(self, path):
        self.lib = ctypes.CDLL(path)
        self.lib.sorrelin_details.restype = ctypes.c_int
        self.lib.sorrelin_details.argtypes = [ctypes.c_char_p, ctypes.c_size_t, ctypes.POINTER(ctypes.c_size_t),
                                              ctypes.c_ubyte, ctypes.c_ubyte, ctypes.c_int, ctypes.c_char_p,
                                              ctypes.c_size_t]

    def details(self, channel, p_rev, band, msg):
        needed = ctypes.c_size_t(0)
        self.lib.sorrelin_details(None, 0, ctypes.byref(needed), band, p_rev, channel, msg, len(msg))
        buf = ctypes.create_string_buffer(needed.value)
        rc = self.lib.sorrelin_details(buf, needed.value, None, band, p_rev, channel, msg, len(msg))
        return rc, buf.value.decode("latin-1")


def sdu_split(case):
    """The margin lines before a whole-message case's SDU label line, or None."""
    for i, (margin, text) in enumerate(case.lines):
        if not margin and text.strip().startswith("SDU.") and " = " in text:
            return case.lines[:i]
    return None


def with_type(header, channel, p_rev, msg_type):
    h = list(header)
    if channel in (2, 3) and msg_type < 64 and (channel == 3 or p_rev >= 7):
        h[2:8] = [(msg_type >> i) & 1 for i in range(5, -1, -1)]   # PD kept, MSG_ID replaced
    else:
        h[0:8] = [(msg_type >> i) & 1 for i in range(7, -1, -1)]
    return h


def wrap(lib, templates, channel, p_rev, band, msg_type, body, shows):
    """The body behind the first template header whose message the library decodes showing `shows`."""
    for t in templates.get(channel, []):
        bits = with_type(t, channel, p_rev, msg_type) + body
        msg = octets(bits, CRC[channel] + 8)   # 8 spare bits: the channel's count leaves them out
        rc, text = lib.details(channel, p_rev, band, msg)
        if shows in text:
            return msg
    return None


def dbm_body(burst_type, contents):
    """A traffic channel Data Burst Message body: MSG_NUMBER, BURST_TYPE, NUM_MSGS, NUM_FIELDS, CHARi."""
    bits = []
    put_value(bits, "1", 8)
    put_value(bits, str(burst_type), 6)
    put_value(bits, "1", 8)
    put_value(bits, str(len(contents) // 8), 8)
    return bits + contents


def golden_messages(lib, paths):
    """(channel, p_rev, band, all_broadcast, message) of every golden case usable as a message."""
    cases = [k for p in paths for k in read_cases(p)]
    templates = {}
    for k in cases:
        if "body" in k.params or "burst" in k.params or "record" in k.params or "hex" in k.params:
            continue
        head = sdu_split(k)
        if head is not None:
            templates.setdefault(k.channel, []).append(k.bits(head))
    out, dropped = [], 0
    for k in cases:
        p_rev, band, all_bc = k.get("p_rev", 0), k.get("band", 0), k.get("all_broadcast", 0)
        if "record" in k.params:
            continue
        if "body" in k.params:
            first = next(t for _, t in k.lines if t.strip())
            shows = "= " + first.strip()
            if k.channel == 2 and 28 <= k.get("body") <= 33:
                # Broadcast messages the C interface leaves undecoded: their header shows them,
                # and the decoder target's seed gets the option that decodes them.
                shows, all_bc = "MSG_ID = %d" % k.get("body"), 1
            msg = wrap(lib, templates, k.channel, p_rev, band, k.get("body"), k.bits(), shows)
        elif "burst" in k.params:
            channel = 4 if k.channel in (1, 2, 4) else 5
            msg = wrap(lib, templates, channel, p_rev, band, 4, dbm_body(k.get("burst"), k.bits()), "L4Message")
            out.append((channel, p_rev, band, all_bc, msg)) if msg else None
            dropped += msg is None
            continue
        elif "hex" in k.params:
            msg = bytes.fromhex(k.params["hex"])
        else:
            msg = octets(k.bits(), CRC[k.channel])
        if msg is None:
            dropped += 1
            continue
        out.append((k.channel, p_rev, band, all_bc, msg))
    return out, dropped


def capture_messages(paths):
    out = []
    for path in paths:
        for line in open(path):
            code, _, comment = line.partition("#")
            tok = code.split()
            if len(tok) < 3:
                continue
            channel = CHANNELS.get(tok[0]) or (int(tok[0]) if tok[0].isdigit() else None)
            if channel is None:
                continue
            bc = re.search(r"\bbc=(\d+)", comment)
            band = int(tok[2]) if len(tok) == 4 else int(bc.group(1)) if bc else 0
            out.append((channel, int(tok[1]), band, 0, bytes.fromhex(tok[-1])))
    return out


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--lib", required=True, help="the shared library, to check wrapped bodies")
    ap.add_argument("--target", required=True, choices=sorted(SWITCHES))
    ap.add_argument("out")
    ap.add_argument("files", nargs="+")
    a = ap.parse_args()
    lib = Library(a.lib)
    goldens = [f for f in a.files if f.endswith(".ok")]
    messages, dropped = golden_messages(lib, goldens)
    messages += capture_messages([f for f in a.files if not f.endswith(".ok")])
    os.makedirs(a.out, exist_ok=True)
    written = set()
    for channel, p_rev, band, all_bc, msg in messages:
        for sw in SWITCHES[a.target]:
            if a.target == "decoder":
                sw |= all_bc
            data = bytes([channel, p_rev, band, sw]) + msg
            name = hashlib.sha1(data).hexdigest()
            if name not in written:
                with open(os.path.join(a.out, name), "wb") as o:
                    o.write(data)
                written.add(name)
    print("%d seeds from %d messages (%d golden cases could not be put in a message)"
          % (len(written), len(messages), dropped))


if __name__ == "__main__":
    sys.exit(main())

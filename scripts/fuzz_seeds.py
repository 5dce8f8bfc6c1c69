#!/usr/bin/env python3
"""Writes one fuzzer seed per message line of the given capture files: channel, P_REV and band
class octets, then the message (the layout fuzz/fuzz_details.cpp reads)."""
import os
import sys

CHANNELS = {"sync": 1, "paging": 2, "access": 3, "ftc": 4, "rtc": 5}

def main():
    *files, out = sys.argv[1:]
    n = 0
    for f in files:
        for line in open(f):
            tok = line.split("#")[0].split()
            if len(tok) < 3:
                continue
            ch = CHANNELS.get(tok[0]) or (int(tok[0]) if tok[0].isdigit() else None)
            if ch is None:
                continue
            band = int(tok[2]) if len(tok) == 4 else 0
            data = bytes([ch, int(tok[1]), band]) + bytes.fromhex(tok[-1])
            with open(os.path.join(out, "seed%04d" % n), "wb") as o:
                o.write(data)
            n += 1
    print("%d seeds" % n)

main()

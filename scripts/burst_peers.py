#!/usr/bin/env python3
"""Compare the service provisioning (IS-683) and short message (IS-637) contents of data
bursts with tshark's dissectors, field by field.

  burst_peers.py corpus [N] [SEED]       print N random bursts of each kind (is683f, is683r,
                                         is637), well formed, in the peer's line format
  burst_peers.py compare CORPUS [BUILD]  decode CORPUS with tshark (shared/peers/tshark/
                                         decode.sh) and with this library (the static library
                                         of BUILD, default build/debug), then report per field
                                         how often the two agree where both decode it

Every burst is built from the C.S0016 / C.S0015 field tables with random field values; the
message types, parameter blocks, parameters and subparameters are drawn from those this
library decodes. A field counts when both decoders show it: tshark's labels are mapped to this
library's field names (MAPPING below), occurrences are paired in order within one burst, and
values are compared in the form both can show (numbers; digit and character strings against
the readings of the character fields; octet strings in hex).
"""
import collections
import os
import random
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)



def peer_script():
    """decode.sh of the shared tshark peer: $SORRELIN_TSHARK_PEER, or shared/peers/tshark beside
    the checkout or one level further up (a worktree)."""
    if os.environ.get('SORRELIN_TSHARK_PEER'):
        return os.environ['SORRELIN_TSHARK_PEER']
    for up in ('..', os.path.join('..', '..')):
        path = os.path.normpath(os.path.join(ROOT, up, 'shared', 'peers', 'tshark', 'decode.sh'))
        if os.path.exists(path):
            return path
    sys.exit('decode.sh of the tshark peer not found; set SORRELIN_TSHARK_PEER')

# ---------------------------------------------------------------- building bursts


class W:
    def __init__(self):
        self.bits = []

    def f(self, width, value):
        for i in range(width - 1, -1, -1):
            self.bits.append((value >> i) & 1)
        return self

    def octets(self, data):
        for o in data:
            self.f(8, o)
        return self

    def pad(self):
        while len(self.bits) % 8:
            self.bits.append(0)
        return self

    def bytes(self):
        self.pad()
        return bytes(int(''.join(map(str, self.bits[i:i + 8])), 2) for i in range(0, len(self.bits), 8))


def block(r, block_id, body):
    """BLOCK_ID, BLOCK_LEN and the block's octets."""
    return bytes([block_id, len(body)]) + body


def imsi_m(w, r):
    w.f(1, r.getrandbits(1)).f(3, r.getrandbits(3)).f(10, r.randrange(1000)).f(7, r.randrange(100))
    w.f(34, r.getrandbits(34))


def term(w, r):
    w.f(4, r.getrandbits(4)).f(1, r.getrandbits(1)).f(1, r.getrandbits(1)).f(1, r.getrandbits(1)).f(1, r.getrandbits(1))


def pairs(w, r, n):
    for _ in range(n):
        w.f(15, r.getrandbits(15)).f(16, r.getrandbits(16))


def nam_block(r, forward):
    kind = r.choice([0, 1, 2, 3, 3, 1, 200])
    w = W()
    if kind == 0:
        w.f(11, r.getrandbits(11)).f(15, r.getrandbits(15)).f(1, r.getrandbits(1))
        if not forward:
            w.f(8, r.getrandbits(8)).f(8, r.randrange(12))
        imsi_m(w, r)
        term(w, r)
        n = r.randrange(3)
        if not forward:
            w.f(8, r.randrange(4, 20))
        w.f(8, n)
        pairs(w, r, n)
    elif kind == 1:
        n = r.randrange(1, 15)
        w.f(4, n)
        for _ in range(n):
            w.f(4, r.randrange(1, 11))
    elif kind == 2:
        if not forward:
            w.f(2, 0).f(1, r.getrandbits(1)).f(5, 0).f(8, r.randrange(12))
        imsi_m(w, r)
        term(w, r)
        n = r.randrange(3)
        if not forward:
            w.f(8, r.randrange(4, 20))
        w.f(8, n)
        pairs(w, r, n)
    elif kind == 3:
        w.f(1, r.getrandbits(1)).f(3, r.getrandbits(3)).f(10, r.randrange(1000)).f(7, r.randrange(100))
        w.f(34, r.getrandbits(34)).f(1, 0)
    else:
        w.octets(r.randbytes(r.randrange(1, 5)))
    return block(r, kind, w.bytes())


def fresh(w, r):
    """The FRESH of Release C, or nothing (IS-683-A)."""
    c = r.randrange(3)
    if c == 1:
        w.f(1, 0).f(7, 0)
    elif c == 2:
        w.f(1, 1).f(15, r.getrandbits(15))


def prl_segment(r):
    n = r.randrange(8)
    w = W().f(7, 0).f(1, r.getrandbits(1)).f(16, r.getrandbits(16)).f(8, n)
    return w.octets(r.randbytes(n)).bytes()


def ascii_text(r, n):
    return [r.randrange(0x20, 0x7f) for _ in range(n)]


def gpd_block(r, forward):
    kinds = [0, 1, 2, 6, 7, 8, 9, 10, 11] if forward else [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12]
    kind = r.choice(kinds)
    w = W()
    if forward and kind == 0 or not forward and kind == 1:
        w.f(2, r.randrange(3))
    elif not forward and kind == 0:
        w.f(8, r.getrandbits(8))
    elif not forward and kind == 2:
        w.f(4, r.getrandbits(4)).f(8, r.getrandbits(8)).f(5, r.getrandbits(5)).f(8, r.getrandbits(8))
    elif not forward and kind == 3:
        w.f(4, r.getrandbits(4)).f(8, r.getrandbits(8)).f(5, r.getrandbits(5)).f(8, r.getrandbits(8))
        w.f(5, r.getrandbits(5)).f(8, r.getrandbits(8))
    elif forward and kind == 1 or not forward and kind == 4:
        n = r.randrange(1, 3)
        w.f(4, n)
        for i in range(n):
            nai = ascii_text(r, r.randrange(1, 10))
            w.f(4, i).f(8, len(nai)).octets(nai).f(4, r.getrandbits(4))
    elif forward and kind == 2 or not forward and kind == 5:
        retry = r.getrandbits(1)
        w.f(1, retry)
        if retry:
            w.f(2, r.getrandbits(2)).f(3, r.getrandbits(3)).f(6, r.getrandbits(6))
        n = r.randrange(1, 3)
        w.f(4, n)
        for i in range(n):
            nai = ascii_text(r, r.randrange(1, 8))
            w.f(4, i).f(8, len(nai)).octets(nai).f(1, r.getrandbits(1))
            w.f(32, r.getrandbits(32)).f(32, r.getrandbits(32)).f(32, r.getrandbits(32))
            for _ in range(2):
                spi = r.getrandbits(1)
                w.f(4, r.getrandbits(4)).f(1, spi)
                if spi:
                    w.f(32, r.getrandbits(32))
    elif kind == 6:
        w.f(4, r.getrandbits(4))
    elif kind == 7:
        n = r.randrange(4)
        w.f(4, r.getrandbits(4)).f(4, n)
        for _ in range(n):
            w.f(4, r.getrandbits(4))
    elif kind in (8, 9):
        n = r.randrange(1, 3)
        w.f(4, n)
        for i in range(n):
            ss = r.randbytes(r.randrange(1, 6))
            w.f(4, i).f(5, len(ss)).octets(ss)
    elif kind == 10:
        n = r.randrange(1, 3)
        w.f(4, n)
        for i in range(n):
            w.f(4, i)
            for _ in range(2):
                ss = r.randbytes(r.randrange(1, 6))
                w.f(5, len(ss)).octets(ss)
    else:
        w.octets(r.randbytes(r.randrange(1, 4)))
    return block(r, kind, w.bytes())


def otasp_forward(r):
    t = r.choice([0, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 9, 10, 13, 14, 14])
    w = W().f(8, t)
    if t in (0, 13):
        ids = [r.randrange(4 if t == 0 else 12) for _ in range(r.randrange(1, 5))]
        w.f(8, len(ids)).octets(ids)
    elif t == 1:
        blocks = [nam_block(r, True) for _ in range(r.randrange(1, 4))]
        w.f(8, len(blocks))
        for b in blocks:
            w.octets(b)
        fresh(w, r)
    elif t == 2:
        rev = r.choice([2, 2, 3, 4, 5])
        w.f(8, rev)
        if rev < 3:
            for _ in range(2):
                p = r.randbytes(r.randrange(1, 9))
                w.f(8, len(p)).octets(p)
    elif t == 3:
        res = r.randbytes(r.randrange(1, 9))
        w.f(8, len(res)).octets(res)
    elif t == 4:
        w.f(32, r.getrandbits(32))
    elif t == 6 and r.getrandbits(1):
        recs = [r.randrange(6) for _ in range(r.randrange(1, 4))]
        w.f(8, r.randrange(2, 6)).f(8, len(recs)).octets(recs)
    elif t == 7:
        b = r.randrange(3)
        w.f(8, b)
        if b == 1:
            w.f(16, r.getrandbits(16)).f(8, r.getrandbits(8))
    elif t == 8:
        w.octets(block(r, r.randrange(2), prl_segment(r)))
        fresh(w, r)
    elif t == 9:
        blocks = []
        for _ in range(r.randrange(1, 4)):
            k = r.randrange(3)
            if k < 2:
                spc = int(''.join(str(r.randrange(10)) for _ in range(6)), 16)
                blocks.append(block(r, k, spc.to_bytes(3, 'big')))
            else:
                sig = r.getrandbits(1)
                v = W().f(1, sig)
                if sig:
                    v.f(18, r.getrandbits(18))
                blocks.append(block(r, 2, v.f(1, r.getrandbits(1)).bytes()))
        w.f(8, len(blocks))
        for b in blocks:
            w.octets(b)
    elif t == 10:
        w.f(1, r.getrandbits(1)).f(7, 0)
    elif t == 14:
        blocks = [gpd_block(r, True) for _ in range(r.randrange(1, 4))]
        w.f(8, len(blocks))
        for b in blocks:
            w.octets(b)
        fresh(w, r)
    return w.bytes()


def otasp_reverse(r):
    t = r.choice([0, 0, 1, 2, 3, 4, 5, 6, 7, 7, 8, 9, 10, 13, 13, 14])
    w = W().f(8, t)
    if t == 0:
        blocks = [nam_block(r, False) for _ in range(r.randrange(1, 4))]
        w.f(8, len(blocks))
        for b in blocks:
            w.octets(b)
        w.octets([r.randrange(12) for _ in blocks])
        fresh(w, r)
    elif t in (1, 9, 14):
        n = r.randrange(1, 4)
        w.f(8, n)
        for _ in range(n):
            w.f(8, r.randrange(12)).f(8, r.randrange(40))
    elif t in (2, 5):
        w.f(8, r.randrange(40))
    elif t == 3:
        res = r.randbytes(r.randrange(1, 9))
        w.f(8, r.randrange(40)).f(8, len(res)).octets(res)
    elif t == 4:
        w.f(18, r.getrandbits(18)).f(8, r.getrandbits(8)).f(6, r.getrandbits(6)).f(24, r.getrandbits(24))
    elif t == 6:
        feats = r.randrange(1, 5)
        w.f(16, r.getrandbits(16)).f(8, r.getrandbits(8)).f(8, feats)
        for _ in range(feats):
            w.f(8, r.randrange(11)).f(8, r.randrange(1, 6))
        add = r.randbytes(r.randrange(0, 3))
        w.f(8, len(add)).octets(add)
    elif t == 7:
        b = r.randrange(3)
        if b == 0:
            body = W().f(16, r.getrandbits(16)).f(16, r.getrandbits(16)).f(16, r.getrandbits(16)).f(1, 0)
            body.f(9, r.getrandbits(9)).f(14, r.getrandbits(14))
        elif b == 1:
            body = W().octets(prl_segment(r))
        else:
            rev = r.choice([1, 3])
            body = W().f(16, r.getrandbits(16)).f(16, r.getrandbits(16)).f(16, r.getrandbits(16)).f(8, rev)
            if rev == 1:
                body.f(1, 0).f(9, r.getrandbits(9)).f(14, r.getrandbits(14))
            else:
                body.f(9, r.getrandbits(9)).f(9, r.getrandbits(9)).f(14, r.getrandbits(14))
        data = body.bytes()
        w.f(8, b).f(8, r.randrange(40)).f(8, len(data)).octets(data)
        fresh(w, r)
    elif t == 8:
        w.f(8, r.randrange(2)).f(8, r.randrange(40)).f(16, r.getrandbits(16)).f(8, r.getrandbits(8))
    elif t == 10:
        lock = r.getrandbits(1)
        w.f(8, r.randrange(40)).f(7, 0).f(1, lock)
        if lock:
            w.f(32, r.getrandbits(32))
    elif t == 13:
        n = r.randrange(1, 4)
        w.f(8, n)
        for _ in range(n):
            w.octets(gpd_block(r, False)).f(8, r.randrange(40))
        fresh(w, r)
    return w.bytes()


# C.R1001 encodings: (MSG_ENCODING, bits per character, characters)
def text_chars(r, enc, n):
    if enc in (2, 3):
        return ascii_text(r, n)
    if enc == 4:
        return [r.choice([r.randrange(0x20, 0x7f), r.randrange(0xa0, 0x3000)]) for _ in range(n)]
    if enc == 8:
        return [r.choice([r.randrange(0x20, 0x7f), r.randrange(0xa1, 0x100)]) for _ in range(n)]
    if enc == 9:
        return [r.choice([r.randrange(0x20, 0x7f), r.randrange(0x41, 0x5b)]) for _ in range(n)]
    return [r.getrandbits(8) for _ in range(n)]


WIDTH = {0: 8, 2: 7, 3: 7, 4: 16, 8: 8, 9: 7}


def user_data(r):
    enc = r.choice([0, 1, 2, 2, 3, 4, 8, 9, 9, 10])
    w = W().f(5, enc)
    if enc == 1:   # IS-91: short message in 6-bit characters, or calling line digits
        kind = r.choice([0x85, 0x84])
        chars = [r.randrange(0x21, 0x3b) for _ in range(r.randrange(1, 12))] if kind == 0x85 else \
            [r.randrange(1, 11) for _ in range(r.randrange(1, 12))]
        w.f(8, kind).f(8, len(chars))
        for c in chars:
            w.f(6 if kind == 0x85 else 4, c)
        return w.bytes()
    if enc == 10:  # a GSM data coding scheme: 8-bit data or UCS-2
        dcs = r.choice([0x04, 0x08])
        chars = text_chars(r, 0 if dcs == 0x04 else 4, r.randrange(1, 12))
        w.f(8, dcs).f(8, len(chars))
        for c in chars:
            w.f(8 if dcs == 0x04 else 16, c)
        return w.bytes()
    chars = text_chars(r, enc, r.randrange(1, 20))
    w.f(8, len(chars))
    if enc == 9:   # septets packed from the least significant bit of each octet (TS 23.038)
        bits = [(c >> b) & 1 for c in chars for b in range(7)]
        bits += [0] * (-len(bits) % 8)
        for i in range(0, len(bits), 8):
            w.f(8, sum(bit << k for k, bit in enumerate(bits[i:i + 8])))
        return w.bytes()
    for c in chars:
        w.f(WIDTH[enc], c)
    return w.bytes()


def bcd(v):
    return (v // 10) << 4 | v % 10


def subparameter(r):
    sid = r.choice([0, 1, 1, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 17, 20, 21])
    w = W()
    if sid == 0:
        w.f(4, r.randrange(1, 9)).f(16, r.getrandbits(16)).f(1, 0).f(3, 0)
    elif sid == 1:
        w.octets(user_data(r))
    elif sid in (3, 4, 6):
        w.octets([bcd(r.randrange(100)), bcd(r.randrange(1, 13)), bcd(r.randrange(1, 29)), bcd(r.randrange(24)),
                  bcd(r.randrange(60)), bcd(r.randrange(60))])
    elif sid in (2, 5, 7, 13, 21):
        w.f(8, r.getrandbits(8))
    elif sid in (8, 9, 12, 15):
        w.f(2, r.getrandbits(2)).f(6, 0)
    elif sid == 10:
        w.f(4, r.getrandbits(4)).f(4, 0)
    elif sid == 11:
        w.f(8, bcd(r.randrange(100)))
    elif sid == 14:
        mode = r.getrandbits(1)
        w.f(1, mode)
        if mode:
            digits = [r.randrange(0x30, 0x3a) for _ in range(r.randrange(1, 11))]
            w.f(3, r.randrange(7)).f(4, r.choice([0, 1, 9])).f(8, len(digits)).octets(digits)
        else:
            digits = [r.randrange(1, 11) for _ in range(r.randrange(1, 11))]
            w.f(8, len(digits))
            for d in digits:
                w.f(4, d)
    elif sid == 17:
        w.f(16, r.getrandbits(16))
    elif sid == 20:
        w.f(2, r.choice([0, 2, 3])).f(6, r.getrandbits(6))
    data = w.bytes()
    return bytes([sid, len(data)]) + data


def address(r):
    mode = r.getrandbits(1)
    w = W().f(1, mode)
    if mode:
        number_mode = r.getrandbits(1)
        w.f(1, number_mode).f(3, r.randrange(1, 3) if number_mode else r.randrange(7))
        if not number_mode:
            w.f(4, r.choice([0, 1, 9]))
        chars = [r.randrange(0x30, 0x3a) for _ in range(r.randrange(1, 11))]
        w.f(8, len(chars)).octets(chars)
    else:
        chars = [r.randrange(1, 11) for _ in range(r.randrange(1, 11))]
        w.f(1, 0).f(8, len(chars))
        for c in chars:
            w.f(4, c)
    return w.bytes()


def sms(r):
    t = r.choice([0, 0, 1, 2])
    out = bytearray([t])

    def param(pid, data):
        out.extend([pid, len(data)])
        out.extend(data)

    if t == 1:
        param(1, r.getrandbits(16).to_bytes(2, 'big'))
    else:
        param(0, r.choice([4097, 4098, 4099, 4101]).to_bytes(2, 'big'))
        param(r.choice([2, 4]), address(r))
    if t == 2:
        cls = r.choice([0, 2, 3])
        data = W().f(6, r.getrandbits(6)).f(2, cls)
        if cls:
            data.f(8, r.getrandbits(8))
        param(7, data.bytes())
        return bytes(out)
    if r.getrandbits(1):
        param(6, W().f(6, r.getrandbits(6)).f(2, 0).bytes())
    bearer = b''.join(subparameter(r) for _ in range(r.randrange(1, 6)))
    param(8, bearer)
    return bytes(out)


def corpus(n, seed):
    r = random.Random(seed)
    for kind, gen in (('is683f', otasp_forward), ('is683r', otasp_reverse), ('is637', sms)):
        for _ in range(n):
            print('%s 0 %s' % (kind, gen(r).hex()))

# ---------------------------------------------------------------- comparing

# tshark label (regular expression on the label before ": ") -> field name of this library.
# A name with "#" takes the label's "#n" (counted from 1) as the index n-1.
MAPPING = [
    (r'(Forward|Reverse) Link Message Type', 'ota_msg_type'),
    (r'Number of parameter blocks', 'num_blocks'),
    (r'NAM Parameter Block Type #(\d+)', 'block_id#'),
    (r'3GPD Parameter Block (\d+)', 'block_id#'),
    (r'(NAM|3GPD) Parameter Block Type|Parameter Block SSPR|Parameter Block Value', 'block_id'),
    (r'Block #(\d+) result code', 'result_code#'),
    (r'(Result Code|Key exchange result code|Data commit result code|SSPR Configuration result code|'
     r'SSPR Download result code|OTAPA result code)', 'result_code'),
    (r'FRESH_INCL', 'fresh_incl'),
    (r'FRESH', 'fresh'),
    (r'A-Key Protocol Revision', 'a_key_p_rev'),
    (r'Parameter P', 'param_p'),
    (r'Parameter G', 'param_g'),
    (r'Base Station Calculation Result', 'bs_result'),
    (r'Mobile station calculation result', 'ms_result'),
    (r'Random Challenge value', 'rand'),
    (r'OTASP protocol revision', 'otasp_p_rev'),
    (r'Number of Capability Records', 'num_cap_records'),
    (r'Record Type #(\d+)', 'cap_record_type#'),
    (r'Segment offset', 'request_offset|segment_offset'),
    (r'Maximum segment size', 'request_max_size|segment_size'),
    (r'Service programming code', 'spc'),
    (r'OTAPA SPASM validation signature indicator', 'auth_otapa_incl'),
    (r'OTAPA SPASM validation signature', 'auth_otapa'),
    (r'SPASM protection for the active NAM', 'nam_lock'),
    (r'OTAPA session', 'start_stop'),
    (r'Mobile station firmware revision number', 'mob_firm_rev'),
    (r"Mobile station manufacturer's model number", 'mob_model'),
    (r'Number of features', 'num_features'),
    (r'Feature ID #\d+', 'feature_id'),
    (r'Feature protocol version', 'feature_p_rev'),
    (r'More Additional Fields', 'additional_fields'),
    (r'NAM_LOCK indicator', 'nam_lock_ind'),
    (r'SPASM random challenge', 'rand_otapa'),
    (r'Slotted Mode', 'slotted_mode'),
    (r'Modbile directory number', 'digitn'),
    (r'Authentication signature data \(AUTHR\)', 'authr'),
    (r'Random challenge value \(RANDC\)', 'randc'),
    (r'Call history parameter \(COUNT\)', 'count'),
    (r'Authentication Data input parameter \(AUTH_DATA\)', 'auth_data'),
    (r'Block Data', 'block_data'),
    (r'.*\(([A-Z0-9_ ]+)\)( used in the home system)?$', 'ABBR'),
    # short messages
    (r'Transport Param ID', 'parameter_id'),
    (r'Teleservice Subparam ID', 'subparameter_id'),
    (r'Digit Mode', 'digit_mode'),
    (r'Number Mode', 'number_mode'),
    (r'Type of Number', 'number_type'),
    (r'Numbering Plan', 'number_plan'),
    (r'Number of fields', 'num_fields'),
    (r'Number', 'chari'),
    (r'Binary Address', 'chari'),
    (r'Message Type( \(see TIA/EIA/IS-91\))?', 'message_type'),
    (r'Message ID', 'message_id'),
    (r'Header Indicator', 'header_ind'),
    (r'Encoding', 'msg_encoding'),
    (r'Encoded user data', 'chari'),
    (r'Timestamp \((Year|Month|Day|Hours|Minutes|Seconds)\)', 'TIME'),
    (r'Priority', 'priority'),
    (r'Privacy', 'privacy|alert_priority'),   # tshark labels the alert priority "Privacy" too
    (r'User Acknowledgement Requested', 'user_ack_req'),
    (r'Delivery Acknowledgement Requested', 'dak_req'),
    (r'Read Acknowledgement Requested', 'read_ack_req'),
    (r'Delivery/Submit Report Requested', 'report_req'),
    (r'Number of voice mail messages', 'message_ct'),
    (r'Validity', 'validity'),
    (r'Delivery Time', 'delivery_time_relative'),
    (r'Language', 'language'),
    (r'Message Display Mode', 'msg_display_mode'),
    (r'Message Deposit Index', 'message_deposit_index'),
    (r'Response Code', 'response_code'),
    (r'Reply Sequence Number', 'reply_seq'),
    (r'Error Class', 'error_class'),
    (r'Cause Code', 'cause_code'),
    (r'Message Status Code', 'msg_status_code'),
    (r'GSM SMS TP-Failure Cause', 'tp_failure_cause'),
    (r'Service Category', 'category'),
]
# "Length" names the length of the block, parameter or octet string opened just before it.
LENGTH_AFTER = [
    (r'Key exchange parameter P', 'param_p_len'), (r'Key exchange parameter G', 'param_g_len'),
    (r'Transport Param ID', 'parameter_len'), (r'Teleservice Subparam ID', 'subparam_len'),
    (r'Number of features|Feature', 'add_length'),
    (r'Key exchange result code', 'ms_result_len'), (r'Forward Link Message Type: Key Generation', 'bs_result_len'),
    (r'Parameter Block|Result Code|result code|Block #', 'block_len'),
]
# Fields tshark shows in a form that cannot be set against a value (described in the report).
SKIP = [r'Reserved', r'SID/NID pairs$', r'\(IMSI_[MT]_S\)', r'Station class mark', r'Extended SCM', r'^Mode$',
        r'^Slotted$', r'^MEID$', r'25 MHz', r'Transmission', r'Power Class', r'Band Class', r'Security',
        r'Most significant bits', r'Least significant bits', r'Odd/Even', r'^Type$', r'\[', r'^Message Status$']

# Fields of the parameter and subparameter framing, shown by tshark outside the subtree of the
# parameter they frame.
FRAMING = {'parameter_id', 'parameter_len', 'subparameter_id', 'subparam_len'}

# Block identifiers whose contents this library lays out but tshark shows as octets.
DECODED_BLOCKS = {
    ('is683f', '3GPD Parameter Block Type'): {0, 1, 2, 6, 7, 8, 9, 10},
    ('is683r', '3GPD Parameter Block Type'): set(range(11)),
    ('is683f', 'Parameter Block SSPR'): {0, 1},
    ('is683r', 'Parameter Block SSPR'): {0, 1, 2},
}

LINE = re.compile(r'^(?P<bits>[01. ]+) = (?P<label>[^:]+): (?P<value>.*)$|^(?P<label2>[^:=]+): (?P<value2>.*)$')


def bit_value(bits):
    digits = [c for c in bits if c in '01']
    return int(''.join(digits), 2) if digits else None


def peer_fields(lines, kind):
    """tshark -V lines of one burst -> [(name, value, record)] in order (record: tshark's
    subtree title in the form of this library's record labels), the labels left unmapped, and
    the number of blocks tshark shows as octets where this library shows their fields."""
    out, unmapped, context, raw_blocks, block_decoded, record = [], [], '', 0, False, ''
    opened = collections.Counter()
    for raw in lines:
        s = raw.strip()
        if not s or s.startswith('ANSI IS-'):
            continue
        m = LINE.match(raw.lstrip())   # trailing blanks of a text value are characters
        if not m:
            context = s
            # tshark appends a reading to some titles ("Cause Codes - Reply Sequence Number (3)").
            title = re.sub(r'^(Teleservice Identifier|Bearer Reply Option|Cause Codes|Service Category) - .*', r'\1', s)
            label = re.sub(r'[^a-z0-9]+', '_', title.lower()).strip('_')
            record = '%s#%d' % (label, opened[label])
            opened[label] += 1
            continue
        label = (m.group('label') or m.group('label2')).strip()
        value = m.group('value') if m.group('label') else m.group('value2')
        bits = bit_value(m.group('bits')) if m.group('bits') else None
        if any(re.search(p, label) for p in SKIP):
            continue
        if label == 'Length':
            name = next((n for p, n in LENGTH_AFTER if re.search(p, context)), None)
            if name:
                out.append((name, int(value), record))
            context = label
            continue
        context = '%s: %s' % (label, value)
        if (kind, label) in DECODED_BLOCKS:
            ids = re.findall(r'\((\d+)\)', value)
            block_decoded = bool(ids) and int(ids[-1]) in DECODED_BLOCKS[(kind, label)]
        if label == 'Block Data' and block_decoded:
            raw_blocks += 1
            continue
        for pattern, name in MAPPING:
            mm = re.fullmatch(pattern, label)
            if not mm:
                continue
            if name == 'ABBR':
                name = mm.group(1).strip().lower().replace('__', '_')
            elif name == 'TIME':
                name = mm.group(1).lower()
            elif name.endswith('#'):
                name = '%s[%d]' % (name[:-1], int(mm.group(mm.lastindex)) - 1)
            out.append((name, value if bits is None else bits, record))
            break
        else:
            unmapped.append(label)
    return out, unmapped, raw_blocks


OURS = re.compile(r'^ *(?P<name>[^ ]+) = (?P<value>-?\d+|0x[0-9a-f]+)(?: \( (?P<reading>.*) \))?$')


def our_fields(text):
    """Our detail text -> {name: [(value, reading, record)]}, record being the label of the
    innermost record the field is in. Indexed character and octet fields are also gathered per
    record into one entry under their base name: their readings (or their values as hex
    octets) in order."""
    fields = collections.defaultdict(list)
    runs, records, lines, opened = {}, [''], text.splitlines(), collections.Counter()
    for i, line in enumerate(lines):
        s = line.strip()
        if s == '{':
            continue
        if s == '}':
            records.pop()
            runs = {}
            continue
        if i + 1 < len(lines) and lines[i + 1].strip() == '{':
            label = re.sub(r'\[\d+\]', '', s.split(' = ')[0]) if ' = ' in s else s
            records.append('%s#%d' % (label, opened[label]))
            opened[label] += 1
            continue
        m = OURS.match(line)
        if not m:
            continue
        name, value, reading = m.group('name'), m.group('value'), m.group('reading')
        v = int(value, 16) if value.startswith('0x') else int(value)
        fields[name].append((v, reading, records[-1]))
        base = re.match(r'^(.*)\[(\d+)\]$', name)
        if base:
            b = base.group(1)
            if base.group(2) == '0':
                runs[b] = len(fields[b])
                fields[b].append(['', '', records[-1]])
            entry = fields[b][runs[b]]
            entry[0] += '%02x' % v if v < 256 else '%04x' % v
            entry[1] += reading[1:-1] if reading and len(reading) >= 3 and reading[0] == "'" else '?'
    return fields


def relative_time(text):
    """The octet behind tshark's reading of a relative time (C.S0015 Table 4.5.6-1)."""
    if text.startswith('Reserved'):
        return 'reserved'
    special = {'Indefinite': 245, 'Immediate': 246, 'Valid until mobile becomes inactive': 247,
               'Valid until registration area changes': 248}
    for k, v in special.items():
        if text.startswith(k):
            return v
    m = re.match(r'(\d+) (Minutes \+ 12 Hours|Minutes|Days|Weeks)', text)
    if not m:
        return None
    n, unit = int(m.group(1)), m.group(2)
    return {'Minutes': n // 5 - 1, 'Minutes + 12 Hours': n // 30 + 143, 'Days': n + 166, 'Weeks': n + 192}[unit]


def same(name, peer, ours):
    """Whether a value tshark shows equals our field value (value, reading)."""
    value, reading = ours[0], ours[1]
    if isinstance(value, str):   # a run of characters or octets
        # tshark writes characters it has no glyph for as \\uXXXX escapes.
        text = re.sub(r'\\u([0-9A-Fa-f]{4})', lambda m: chr(int(m.group(1), 16)), str(peer))
        if name == 'additional_fields':   # tshark takes the first octet as band class flags
            return text.strip().lower() == value[2:]
        if name in ('chari', 'digitn'):
            return text == reading or text.replace(' ', '') == value
        return text.replace(' ', '').lower() == value
    if isinstance(peer, int):
        return peer == value
    text = str(peer)
    if name in ('year', 'day', 'hours', 'minutes', 'seconds'):
        return reading is not None and int(re.match(r'\d+', text).group()) == int(reading)
    if name == 'month':
        return int(re.search(r'\(([0-9a-f]+)\)', text).group(1), 16) == value
    if name in ('spc', 'message_ct'):
        return int(re.sub(r'\D', '', text) or -1, 16) == value
    if name in ('rand', 'rand_otapa') and re.fullmatch(r'(0x)?[0-9a-fA-F]+', text):
        return int(text, 16) == value & 0xffffffff
    if name in ('validity', 'delivery_time_relative'):
        octet = relative_time(text)
        return value >= 249 if octet == 'reserved' else octet == value
    found = re.findall(r'\((\d+)\)', text) or re.findall(r'^-?\d+', text)
    return bool(found) and int(found[-1]) == value


def split_peer(text):
    bursts, cur = {}, None
    for line in text.splitlines():
        m = re.match(r'^=== line (\d+):', line)
        if m:
            cur = bursts.setdefault(int(m.group(1)), [])
        elif cur is not None and not line.startswith('---'):
            cur.append(line)
    return bursts


def split_ours(text):
    bursts, cur = {}, None
    for line in text.splitlines():
        m = re.match(r'^=== line (\d+) rc=(\d+)$', line)
        if m:
            cur = bursts.setdefault(int(m.group(1)), [int(m.group(2)), []])
        elif cur is not None:
            cur[1].append(line)
    return {k: (rc, '\n'.join(lines)) for k, (rc, lines) in bursts.items()}


def compare(corpus_path, build):
    with tempfile.TemporaryDirectory() as tmp:
        driver = os.path.join(tmp, 'driver')
        subprocess.run(['g++', '-std=c++20', '-O1', '-I', os.path.join(ROOT, 'src'),
                        os.path.join(HERE, 'burst_contents_driver.cpp'),
                        os.path.join(build, 'libcdmaSorrelin.a'), '-o', driver], check=True)
        with open(corpus_path) as f:
            ours = split_ours(subprocess.run([driver], stdin=f, capture_output=True, text=True, check=True).stdout)
        peer = split_peer(subprocess.run([peer_script(), corpus_path], capture_output=True, text=True, check=True).stdout)
    kinds = {}
    with open(corpus_path) as f:
        for n, line in enumerate(f, 1):
            if line.split('#')[0].strip():
                kinds[n] = line.split()[0]
    per_kind = collections.defaultdict(collections.Counter)
    per_field = collections.defaultdict(collections.Counter)
    examples = {}
    unmapped = collections.Counter()
    for n, kind in sorted(kinds.items()):
        rc, text = ours.get(n, (None, ''))
        lines = peer.get(n, [])
        malformed = any('Malformed' in l or 'Short Data' in l for l in lines)
        per_kind[kind]['bursts'] += 1
        if rc != 0:
            per_kind[kind]['ours_failed'] += 1
        if malformed:
            per_kind[kind]['peer_malformed'] += 1
        if rc != 0 or malformed or not lines:
            continue
        per_kind[kind]['both_decode'] += 1
        fields, missing, raw = peer_fields(lines, kind)
        unmapped.update(missing)
        per_kind[kind]['peer_raw'] += raw
        mine = our_fields(text)
        taken = collections.Counter()
        # Short message fields pair within the same parameter or subparameter (tshark's subtree
        # titles are this library's record labels; the n-th record of a label pairs with the
        # n-th); service provisioning fields pair by name, in order.
        def slot(name, record):
            return name if kind != 'is637' or name in FRAMING else (record, name)

        mine_by_slot = collections.defaultdict(list)
        for name, entries in mine.items():
            for entry in entries:
                mine_by_slot[slot(name, entry[2])].append(entry)
        taken = collections.Counter()
        for name, value, record in fields:
            candidates = [slot(c, record) for c in name.split('|')]
            target = next((c for c in candidates if taken[c] < len(mine_by_slot.get(c, []))), None)
            if target is None:
                per_field[(kind, name)]['peer_only'] += 1
                continue
            entry = mine_by_slot[target][taken[target]]
            field = target if isinstance(target, str) else target[1]
            ok = same(field, value, entry)
            where = entry[2].split('#')[0]
            key = (kind, '%s.%s' % (where, field) if where else field)
            per_field[key]['agree' if ok else 'differ'] += 1
            per_kind[kind]['agree' if ok else 'differ'] += 1
            if not ok and key not in examples:
                examples[key] = (n, value, tuple(entry[:2]))
            taken[target] += 1
    print('bursts per kind (both decode = this library result 0 and tshark without a malformed mark):')
    for kind, c in per_kind.items():
        total = c['agree'] + c['differ']
        print('  %-7s %4d bursts, both decode %4d, this library refuses %d, tshark malformed %d; '
              'fields compared %d, agree %d (%.1f%%)' % (kind, c['bursts'], c['both_decode'], c['ours_failed'],
                                                         c['peer_malformed'], total, c['agree'],
                                                         100.0 * c['agree'] / total if total else 0))
    for kind, c in per_kind.items():
        if c['peer_raw']:
            print('  %-7s %d blocks shown by tshark as octets, by this library field by field (not compared)'
                  % (kind, c['peer_raw']))
    print('\nfields where the two differ (count, first example: line, tshark, ours):')
    for (kind, name), c in sorted(per_field.items()):
        if c['differ']:
            n, peer_value, mine_value = examples[(kind, name)]
            print('  %-7s %-40s agree %4d differ %4d\n          line %d: tshark %r, ours %r'
                  % (kind, name, c['agree'], c['differ'], n, peer_value, mine_value))
    print('\nfields tshark shows with no counterpart here:')
    for (kind, name), c in sorted(per_field.items()):
        if c['peer_only']:
            print('  %-7s %-24s %d' % (kind, name, c['peer_only']))
    if unmapped:
        print('\ntshark labels not mapped:', ', '.join('%s (%d)' % kv for kv in unmapped.most_common()))


def main(argv):
    if len(argv) >= 2 and argv[1] == 'corpus':
        corpus(int(argv[2]) if len(argv) > 2 else 300, int(argv[3]) if len(argv) > 3 else 1)
    elif len(argv) >= 3 and argv[1] == 'compare':
        compare(argv[2], argv[3] if len(argv) > 3 else os.path.join(ROOT, 'build', 'debug'))
    else:
        sys.stdout.write(__doc__)
        return 2
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv))

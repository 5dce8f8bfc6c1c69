#!/usr/bin/env python3
"""Position determination data messages: field-by-field agreement with tshark's IS-801 dissector.

Generates a corpus of random IS-801-1 messages (PD_MSG_TYPE 0, the only form tshark decodes)
on both links, each with random requests and responses of every type and random field values,
decodes it with our library (scripts/pd_peer/contents_text.cpp, built against the static
archive of a build tree) and with tshark (the peer's decode.sh, payload kinds is801f/is801r),
and compares every field both decode: the raw values, and for the position quantities our
reading against the value tshark shows.

    scripts/pd_tshark_compare.py [--build build/debug] [--count 300] [--seed 1] [--peer DIR]

Prints the agreement per field and every field where the two differ, with examples.
"""
import argparse
import collections
import os
import random
import re
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)


def bits(fields):
    return ''.join(format(v & ((1 << w) - 1), '0%db' % w) for w, v in fields)


def octets(s):
    s += '0' * (-len(s) % 8)
    return bytes(int(s[i:i + 8], 2) for i in range(0, len(s), 8))


def rnd(rng, w):
    return rng.getrandbits(w)


# Element bodies by (link, request?, type): a function giving the fields, or None for an
# element with no body. Only the elements whose layouts are public are generated with fields;
# the others get random octets (both decoders then show at most the element header).
def loc_resp(rng):
    f = [(14, rnd(rng, 14)), (25, rnd(rng, 25)), (26, rnd(rng, 26)), (4, rnd(rng, 4)), (5, rnd(rng, 5)),
         (5, rnd(rng, 5))]
    fix, vel, clk, hgt = (rng.getrandbits(1) for _ in range(4))
    f += [(1, fix), (1, vel)]
    if vel:
        f += [(9, rnd(rng, 9)), (10, rnd(rng, 10))]
        if fix:
            f += [(8, rnd(rng, 8))]
    f += [(1, clk)]
    if clk:
        f += [(18, rnd(rng, 18)), (16, rnd(rng, 16))]
    f += [(1, hgt)]
    if hgt:
        f += [(14, rnd(rng, 14)), (5, rnd(rng, 5))]
    return f


def sat_health(rng):
    present = rng.getrandbits(1)
    f = [(1, present)]
    if present:
        n = rnd(rng, 4)
        f += [(4, n)] + [(5, rnd(rng, 5)) for _ in range(n + 1)]
    return f


def three_octets(*widths):
    return lambda rng: [(w, rnd(rng, w)) for w in widths]


ELEMENTS = {
    # forward requests
    ('f', True, 1): three_octets(3, 8, 8, 1, 1, 1, 2),
    ('f', True, 4): three_octets(3, 8, 8, 1, 4),
    ('f', True, 5): three_octets(3, 8, 8, 1, 1, 3),
    ('f', True, 6): lambda rng: ([(1, 1), (6, rnd(rng, 6)), (1, 0)] if rng.getrandbits(1) else [(1, 0), (7, 0)]),
    ('f', True, 7): lambda rng: [(4, rnd(rng, 3)), (4, 0)],
    # forward responses
    ('f', False, 0): lambda rng: [(4, rnd(rng, 4)), (3, rnd(rng, 1)), (1, 0)],
    ('f', False, 1): loc_resp,
    ('f', False, 2): three_octets(6, 1, 1, 8),
    ('f', False, 12): sat_health,
    # reverse requests
    ('r', True, 1): lambda rng: [(1, rnd(rng, 1)), (1, rnd(rng, 1)), (1, rnd(rng, 1)), (5, 0)],
    ('r', True, 2): lambda rng: [],
    ('r', True, 3): lambda rng: [(1, rnd(rng, 1)), (7, 0)],
    ('r', True, 4): lambda rng: [(1, rnd(rng, 1)) for _ in range(4)] + [(4, 0)],
    ('r', True, 5): lambda rng: [],
    ('r', True, 6): lambda rng: [(1, rnd(rng, 1)), (7, 0)],
    ('r', True, 8): lambda rng: [],
    ('r', True, 9): lambda rng: [(1, rnd(rng, 1)), (7, 0)],
    ('r', True, 10): lambda rng: [(1, rnd(rng, 1)), (7, 0)],
    ('r', True, 11): three_octets(8, 8),
    ('r', True, 12): lambda rng: [],
    # reverse responses
    ('r', False, 0): lambda rng: [(4, rnd(rng, 4)), (3, rnd(rng, 1)), (1, 0)],
    ('r', False, 1): loc_resp,
    ('r', False, 2): three_octets(6, 4, 6, 12, 12),
    ('r', False, 6): lambda rng: [(24, rnd(rng, 24)), (9, rnd(rng, 9)), (14, rnd(rng, 14)), (1, 0)],
    ('r', False, 7): lambda rng: [(4, rnd(rng, 3)), (1, rnd(rng, 1)), (3, 0)],
}


def element(rng, link, request):
    types = [t for (l, q, t) in ELEMENTS if l == link and q == request]
    t = rng.choice(types)
    body = octets(bits(ELEMENTS[(link, request, t)](rng)))
    head = [(4, 0), (4, t)] if request else [(3, 0), (1, rnd(rng, 1)), (4, t)]
    return bits(head + [(8, len(body))]) + ''.join(format(b, '08b') for b in body)


def message(rng, link):
    nreq, nresp = rng.randint(0, 3), rng.randint(0, 3)
    s = bits([(1, rnd(rng, 1)), (1, rnd(rng, 1)), (1, rnd(rng, 1)), (5, rnd(rng, 5)), (8, 0), (4, nreq), (4, nresp)])
    s += ''.join(element(rng, link, True) for _ in range(nreq))
    s += ''.join(element(rng, link, False) for _ in range(nresp))
    return octets(s).hex()


# ---- our side --------------------------------------------------------------------------

def build_driver(build):
    exe = os.path.join(build, 'pd_contents_text')
    src = os.path.join(HERE, 'pd_peer', 'contents_text.cpp')
    # The static archive: its name has changed once; take whichever the build tree has.
    libs = [os.path.join(build, n) for n in ('libcdmaSorrelin.a', 'libsorrelin_static.a')]
    lib = next((l for l in libs if os.path.exists(l)), libs[0])
    if not os.path.exists(exe) or os.path.getmtime(exe) < max(os.path.getmtime(src), os.path.getmtime(lib)):
        subprocess.run(['g++', '-std=c++20', '-O1', '-I', os.path.join(ROOT, 'src'), src, lib, '-o', exe], check=True)
    return exe


FIELD = re.compile(r'^\s*([a-z0-9_]+) = (-?\d+)(?: \( (.*) \))?$')
BLOCK = re.compile(r'^\s*(requests_msg|responses_msg)\[(\d+)\] = ')


def ours(exe, corpus):
    inp = ''.join('%s 5 %s\n' % (link, hexs) for link, hexs in corpus)
    out = subprocess.run([exe], input=inp, capture_output=True, text=True, check=True).stdout
    result = []
    for chunk in out.split('=== line ')[1:]:
        lines = chunk.splitlines()
        rc = int(lines[0].split('rc=')[1])
        fields, where = [], 'hdr'
        for l in lines[1:]:
            m = BLOCK.match(l)
            if m:
                where = ('req' if m.group(1) == 'requests_msg' else 'resp') + m.group(2)
                continue
            m = FIELD.match(l)
            if m:
                fields.append((where, m.group(1), int(m.group(2)), m.group(3)))
        result.append((rc, fields))
    return result


# ---- tshark's side -----------------------------------------------------------------------

BOOL = {'True': 1, 'False': 0, 'Requested': 1, 'Not requested': 0, 'Not Requested': 0, 'Spherical': 1, 'Cartesian': 0,
        '3D': 1, '2D': 0, 'at least 1/8th PN chip resolution': 1, 'at least 1 PN chip resolution': 0}
# tshark label -> (our field, how its value is shown)
LABELS = [
    ('Session Start', 'sess_start', 'bool'), ('Session End', 'sess_end', 'bool'),
    ('Session Source', 'sess_source', 'bool'), ('Forward Session Tag', 'sess_tag', 'int'),
    ('Reverse Session Tag', 'sess_tag', 'int'), ('PD Message Type', 'pd_msg_type', 'paren'),
    ('Number Requests', 'num_requests', 'int'), ('Number Responses', 'num_responses', 'int'),
    ('Forward Request Type', 'req_type_4', 'paren'), ('Reverse Request Type', 'req_type_4', 'paren'),
    ('Forward Response Type', 'resp_type_4', 'paren'), ('Reverse Response Type', 'resp_type_4', 'paren'),
    ('Unsolicited response indicator', 'unsol_resp', 'bool'), ('Length', 'par_len', 'int'),
    ('Preferred response quality (PREF_RESP_QUAL)', 'pref_resp_qual', 'int'),
    ('Number of fixes (NUM_FIXES)', 'num_fixes', 'int'),
    ('Time between fixes (T_BETW_FIXES) (in seconds)', 't_betw_fixes', 'int'),
    ('Offset requested (OFFSET_REQ)', 'offset_req', 'bool'),
    ('Desired pilot phase resolution', 'desi_pil_ph_res', 'bool'),
    ('Height information', 'height_req', 'bool'), ('Clock correction for GPS time', 'clk_cor_gps_req', 'bool'),
    ('Velocity information', 'velocity_req', 'bool'), ('Use action time indicator', 'use_time', 'bool'),
    ('Action time', 'action_time_6', 'int'), ('Cancellation Type', 'cancel_type', 'paren'),
    ('Reject request type', 'rej_req_type', 'paren'), ('Reject reason', 'rej_reason', 'reason'),
    ('BS_LS_REV', 'bs_ls_rev', 'hex'), ('GPSC_ID: GPS capability indicator', 'gpsc_id', 'int'),
    ('AFLTC_ID: Advanced forward link trilateration capability indicator', 'afltc_id', 'int'),
    ('APDC_ID: Autonomous position determination capability indicator', 'apdc_id', 'apdc'),
    ('CDMA system time at the time the solution is valid (TIME_REF_CDMA)', 'time_ref_cdma', 'rawhex'),
    ('Latitude (LAT)', 'latitude', 'rawhex'), ('Longitude (LONG)', 'longitude', 'rawhex'),
    ('Angle of axis with respect to True North for pos uncertainty (LOC_UNCRTNTY_ANG)', 'loc_uncrtnty_ang', 'rawhex'),
    ('Std dev of axis along angle specified for pos uncertainty (LOC_UNCRTNTY_A)', 'loc_uncrtnty_a', 'rawhex'),
    ('Std dev of axis perpendicular to angle specified for pos uncertainty (LOC_UNCRTNTY_P)', 'loc_uncrtnty_p', 'rawhex'),
    ('Fix type (FIX_TYPE)', 'fix_type', 'bool'), ('Velocity information included (VELOCITY_INCL)', 'velocity_incl', 'bool'),
    ('Horizontal velocity magnitude (VELOCITY_HOR)', 'velocity_hor', 'rawhex'), ('Heading (HEADING)', 'heading', 'rawhex'),
    ('Vertical velocity (VELOCITY_VER)', 'velocity_ver', 'rawhex'),
    ('Clock information included (CLOCK_INCL)', 'clock_incl', 'bool'), ('Clock bias (CLOCK_BIAS)', 'clock_bias', 'rawhex'),
    ('Clock drift (CLOCK_DRIFT)', 'clock_drift', 'rawhex'),
    ('Height information included (HEIGHT_INCL)', 'height_incl', 'bool'), ('Height (HEIGHT)', 'height', 'rawhex'),
    ('Std dev of vertical error for pos uncertainty (LOC_UNCRTNTY_V)', 'loc_uncrtnty_v', 'rawhex'),
    ('Bad GPS satellites present (BAD_SV_PRESENT)', 'bad_sv_present', 'bool'),
    ('Number of bad GPS satellites (NUM_BAD_SV)', 'num_bad_sv', 'plus1'),
    ('Satellite PRN number (SV_PRN_NUM)', 'bad_sv_prn_num', 'plus1'),
    ('Doppler (0th order) term requested (DOPP_REQ)', 'dopp_req', 'bool'),
    ('Additional Doppler terms requested (ADD_DOPP_REQ)', 'add_dopp_req', 'bool'),
    ('Code phase parameters requested (CODE_PH_PAR_REQ)', 'code_ph_par_req', 'bool'),
    ('Azimuth and elevation angle requested (AZ_EL_REQ)', 'az_el_req', 'bool'),
    ('Coordinate type requested', 'coord_type', 'bool'), ('Extended base station almanac', 'ext_bs_alm', 'bool'),
    ('Alpha and Beta parameters', 'ab_par_req', 'bool'), ('Subframes 4 and 5', 'subf_4_5_req', 'bool'),
    ('Time of almanac', 'toa', 'int'), ('GPS week number', 'week_num', 'int'),
    ('MS_LS_REV', 'ms_ls_rev', 'int'), ('MS_MODE', 'ms_mode', 'int'), ('PILOT_PH_CAP', 'pilot_ph_cap', 'paren'),
    ('GPS_ACQ_CAP', 'gps_acq_cap', 'subbits'), ('LOC_CALC_CAP', 'loc_calc_cap', 'hex'),
    ('REF_PN', 'ref_pn', 'int'), ('MOB_SYS_T_OFFSET', 'mob_sys_t_offset', 'int'),
    ('No outstanding request element', 'no_out_req', 'bool'),
]
REASONS = {'Capability not supported': 0, 'Capability normally supported': 1}
TREE = re.compile(r'^(\s*)(?:[01. ]+ = )?(.+?): (.*)$')
DIAGRAM = re.compile(r'^(\s*)([01. ]+) = ')


# tshark shows GPS_ACQ_CAP with the mask of the 12 bits after it (LOC_CALC_CAP's), so its own
# value line repeats LOC_CALC_CAP; the bit lines under it (reserved bits and the seven
# capabilities) show the field's true 12 bits. Their value is read from those bit diagrams.
def subbits_value(lines, k):
    indent = len(TREE.match(lines[k]).group(1))
    bits = {}
    for line in lines[k + 1:]:
        m = DIAGRAM.match(line)
        if not m or len(m.group(1)) <= indent:
            break
        for i, ch in enumerate(m.group(2).replace(' ', '')):
            if ch in '01':
                bits[i] = int(ch)
    if sorted(bits) != list(range(12)):
        return None
    return sum(bits[i] << (11 - i) for i in range(12))


def shown(kind, v):
    v = v.strip()
    if kind == 'bool':
        return BOOL.get(v)
    if kind == 'int':
        m = re.match(r'-?\d+', v)
        return int(m.group()) if m else None
    if kind == 'hex':
        return int(v, 16) if v.startswith('0x') else None
    if kind == 'paren' or kind == 'plus1':
        m = re.search(r'\((\d+)\)\s*(\S.*)?$', v) if kind == 'paren' else re.match(r'\d+', v)
        if kind == 'paren':
            return int(m.group(1)) if m else None
        return int(m.group()) if m else None
    if kind == 'rawhex':
        m = re.search(r'\(0x([0-9a-f]+)\)$', v)
        return int(m.group(1), 16) if m else None
    if kind == 'reason':
        for k, n in REASONS.items():
            if v.startswith(k):
                return n
        return None
    if kind == 'apdc':
        return 0 if v.endswith('None') else int(v.split(': ')[-1])
    return None


def theirs(corpus, peer):
    with tempfile.TemporaryDirectory() as tmp:
        path = os.path.join(tmp, 'c.txt')
        with open(path, 'w') as f:
            for link, hexs in corpus:
                f.write('is801%s 0 %s\n' % (link, hexs))
        out = subprocess.run([os.path.join(peer, 'decode.sh'), path], capture_output=True, text=True, check=True).stdout
    result = []
    for chunk in re.split(r'^=== line \d+.*$', out, flags=re.M)[1:]:
        fields, where, nreq, nresp = [], 'hdr', -1, -1
        lines = chunk.splitlines()
        for k, l in enumerate(lines):
            m = TREE.match(l)
            if not m:
                continue
            label, value = m.group(2), m.group(3)
            for lab, name, kind in LABELS:
                if label == lab or (kind == 'apdc' and label.startswith(lab)):
                    # A request starts at its type, a response at the indicator before its type.
                    if name == 'req_type_4':
                        nreq += 1
                        where = 'req%d' % nreq
                    elif name == 'unsol_resp':
                        nresp += 1
                        where = 'resp%d' % nresp
                    if name == 'par_len':
                        name = 'req_par_len' if where.startswith('req') else 'resp_par_len'
                    v = subbits_value(lines, k) if kind == 'subbits' else shown(kind, value)
                    fields.append((where, name, v, value.strip()))
                    break
        result.append(fields)
    return result


def kind_of(name):
    return next((k for _, n, k in LABELS if n == name), None)


# Our reading of a position quantity against tshark's value.
def reading_agrees(name, our_reading, their_text):
    if our_reading is None:
        return None
    # The uncertainty code's values beyond its table: "> 12288 m" and "not computable".
    if our_reading == 'not computable':
        return their_text.startswith('Not computable')
    if our_reading.startswith('> '):
        if not their_text.startswith('> '):
            return False
        our_reading, their_text = our_reading[2:], their_text[2:]
    ours_v = float(our_reading.split()[0])
    m = re.match(r'(-?[\d.]+)', their_text)
    if not m:
        return None
    theirs_v = float(m.group(1))
    if name in ('latitude', 'longitude'):
        if ' South' in their_text or ' West' in their_text:
            theirs_v = -theirs_v
    return abs(ours_v - theirs_v) <= 0.01 + 1e-4 * abs(ours_v)


QUANTITIES = {'loc_uncrtnty_ang', 'loc_uncrtnty_a', 'loc_uncrtnty_p', 'loc_uncrtnty_v', 'velocity_hor', 'heading',
              'velocity_ver', 'clock_bias', 'clock_drift', 'height', 'latitude', 'longitude'}


def main():
    ap = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    ap.add_argument('--build', default=os.path.join(ROOT, 'build', 'debug'))
    ap.add_argument('--count', type=int, default=300, help='messages per link')
    ap.add_argument('--seed', type=int, default=1)
    peers = [os.path.join(ROOT, *up, 'shared', 'peers', 'tshark') for up in (('..',), ('..', '..'))]
    ap.add_argument('--peer', default=next((p for p in peers if os.path.isdir(p)), peers[0]),
                    help="the tshark peer's directory (decode.sh)")
    a = ap.parse_args()
    rng = random.Random(a.seed)
    corpus = [(link, message(rng, link)) for link in ('f', 'r') for _ in range(a.count)]
    us = ours(build_driver(a.build), corpus)
    them = theirs(corpus, a.peer)
    assert len(us) == len(them) == len(corpus), (len(us), len(them), len(corpus))

    agree, differ, examples = collections.Counter(), collections.Counter(), collections.defaultdict(list)
    decoded_by_us = sum(1 for rc, _ in us if rc == 0)
    for (link, hexs), (rc, ofields), tfields in zip(corpus, us, them):
        if rc != 0:
            continue
        # Repeated fields of an element (the satellites of a health report) pair in order.
        mine, seen = {}, collections.Counter()
        for w, n, v, r in ofields:
            mine[(w, n, seen[(w, n)])] = (v, r)
            seen[(w, n)] += 1
        seen.clear()
        # The element type each element position holds, to tell differences apart.
        kinds = {w: v for w, n, v, _ in ofields if n in ('req_type_4', 'resp_type_4')}
        for where, name, value, text in tfields:
            occ = seen[(where, name)]
            seen[(where, name)] += 1
            if (where, name, occ) not in mine or value is None:
                continue
            key = '%s %s %s' % ('fwd' if link == 'f' else 'rev',
                                ('req' if where.startswith('req') else 'resp' if where.startswith('resp') else 'hdr')
                                + ('' if where == 'hdr' else ' type %d' % kinds.get(where, -1)), name)
            ov, reading = mine[(where, name, occ)]
            # tshark shows the counts that are sent minus one as the count itself.
            ok = (ov + 1 if kind_of(name) == 'plus1' else ov) == value
            if ok and name in QUANTITIES:
                r = reading_agrees(name, reading, text)
                if r is False:
                    key += ' (reading)'
                    ok = False
            if ok:
                agree[key] += 1
            else:
                differ[key] += 1
                if len(examples[key]) < 2:
                    examples[key].append('ours %s%s, tshark "%s" (%s)' % (ov, ' ( %s )' % reading if reading else '', text, hexs))
    total_a, total_d = sum(agree.values()), sum(differ.values())
    print('messages: %d per link; decoded by us: %d' % (a.count, decoded_by_us))
    print('fields compared: %d, agreeing: %d (%.1f%%), differing: %d' %
          (total_a + total_d, total_a, 100.0 * total_a / max(1, total_a + total_d), total_d))
    print('\nagreeing fields:')
    for k in sorted(agree):
        print('  %-50s %5d%s' % (k, agree[k], '' if not differ[k] else '   (differ %d)' % differ[k]))
    print('\ndiffering fields:')
    for k in sorted(differ):
        print('  %-50s %5d of %d' % (k, differ[k], differ[k] + agree[k]))
        for e in examples[k]:
            print('      ' + e)
    return 0


if __name__ == '__main__':
    sys.exit(main())

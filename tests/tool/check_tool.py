#!/usr/bin/python3
"""The command-line tool as a user meets it: its arguments, its input forms, its output forms
and its failures, one group of cases per concern. Runs the tool binary given; reads only this
repository's examples/ and files it writes to a scratch directory.

Usage: check_tool.py TOOL SOURCE_DIR
"""
import json
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile

TOOL, SRC = None, None
SYNC = '010501206200084e390167a5fbcd152529cc472806444445b2'   # a real Sync Channel Message
SYNC_CAPSULE = '1a' + SYNC
GPM9 = '0911342e803a70dec1'   # a real nine-octet General Page capsule, complete only as a capsule
failures = []
checks = 0


def tool(*args, stdin=b'', cwd=None, stdout=subprocess.PIPE):
    p = subprocess.run([TOOL] + list(args), input=stdin, stdout=stdout, stderr=subprocess.PIPE, cwd=cwd)
    return p.returncode, (p.stdout or b''), p.stderr


def check(group, what, ok, detail=''):
    global checks
    checks += 1
    if not ok:
        failures.append('%s: %s%s' % (group, what, ('\n    ' + detail) if detail else ''))


def details_only(out):
    """The output without the place before each name."""
    return re.sub(rb'(?m)^[^ {}\n][^\n]*?: (OVN_|MSG_|unknown)', rb'\1', out)


def write_errors():
    g = 'write errors'
    with open('/dev/full', 'wb') as full:
        for args in (['examples/sync.txt'], ['--json', 'examples/paging.txt'], ['--help'], ['--version'],
                     ['--summary', 'examples/sync.txt']):
            rc, _, err = tool(*args, cwd=SRC, stdout=full)
            check(g, '%s > /dev/full exits non-zero' % ' '.join(args), rc != 0, 'rc=%d' % rc)
            if args[0] not in ('--help', '--version'):
                check(g, '%s > /dev/full says why' % ' '.join(args), b'write error' in err, err.decode())


def files_and_arguments(tmp):
    g = 'files and arguments'
    rc, out, err = tool(tmp)
    check(g, 'a directory is an error', rc == 1 and b'is a directory' in err and out == b'', err.decode())
    rc, out, err = tool('--diag', tmp)
    check(g, 'a directory is an error for --diag', rc == 1 and b'is a directory' in err, err.decode())
    rc, out, err = tool(os.path.join(tmp, 'no-such-file'))
    check(g, 'a missing file is an error', rc == 1 and b'no-such-file' in err, err.decode())
    # Files named like channel words do not turn the one-message form into file names.
    for name in ('sync', '5', SYNC):
        open(os.path.join(tmp, name), 'w').write('paging 6 1 04271a064258c8072665e1\n')
    rc, out, err = tool('sync', '5', SYNC, cwd=tmp)
    check(g, 'the one-message form, with files of those names about', rc == 0 and out.startswith(b'OVN_SCH_MSG_ID_SCHM\n'),
          out[:80].decode() + err.decode())
    rc, out, err = tool('--', 'sync', cwd=tmp)
    check(g, 'after -- a channel word is a file', rc == 0 and out.startswith(b'sync:1: OVN_DPCH_MSG_ID_CCLM\n'), out[:80])
    open(os.path.join(tmp, '-x'), 'w').write('sync 5 %s\n' % SYNC)
    rc, out, err = tool('--', '-x', cwd=tmp)
    check(g, 'after -- an argument with a dash is a file', rc == 0 and out.startswith(b'-x:1: OVN_SCH'), err.decode())
    rc, out, err = tool('-x', cwd=tmp)
    check(g, 'an unknown option is a usage error', rc == 2 and b'unknown option' in err, err.decode())
    rc, out, err = tool('--band-class', '256', 'sync.txt')
    check(g, 'a band class over 255 is a usage error', rc == 2, err.decode())
    rc, out, err = tool('--band-class=1', '-e', 'sync 5 %s' % SYNC)
    check(g, '--name=value', rc == 0 and b'-e:1: OVN_SCH' in out, err.decode())


def bad_lines():
    g = 'bad lines'
    cases = [
        (b'sync 5 01zz\n', rb"<stdin>:1: 'z' in '01zz' is not a hex digit"),
        (b'sync 5 0105a\n', rb'<stdin>:1: the hex has an odd number of digits \(5\)'),
        (b'sync 5 01\x002\n', rb"<stdin>:1: '\\x00' in '01\\x002' is not a hex digit"),
        (b'sync 5 \x1b[31m\xff\n', rb"<stdin>:1: '\\x1b' in '\\x1b\[31m\\xff' is not a hex digit"),
        (b'\xfe\xff\x00junk 5 00\n', rb"<stdin>:1: unknown channel '\\xfe\\xff\\x00junk'"),
        (b'sync x 00\n', rb"<stdin>:1: P_REV 'x' is not a number"),
        (b'sync 5\n', rb'<stdin>:1: expected CHANNEL P_REV'),
        (b'sync 5 0x\n', rb'<stdin>:1: no hex digits'),
        (b'paging 6 11 34 2e 80\n', rb"<stdin>:1: '11' may be the band class or the first octet"),
    ]
    for line, want in cases:
        rc, out, err = tool(stdin=line + b'sync 5 ' + SYNC.encode() + b'\n')
        check(g, repr(line), rc == 1 and re.search(want, err) is not None, err.decode(errors='replace'))
        check(g, repr(line) + ': nothing raw on the terminal', all(c >= 0x20 or c == 0x0a for c in err), repr(err))
        check(g, repr(line) + ': the next line is still decoded', b'<stdin>:2: OVN_SCH_MSG_ID_SCHM' in out, out[:60])


def hex_forms():
    g = 'hex forms'
    spaced = ' '.join(SYNC[i:i + 2] for i in range(0, len(SYNC), 2))
    coloned = ':'.join(SYNC[i:i + 2] for i in range(0, len(SYNC), 2))
    forms = ['sync 5 %s' % SYNC, 'sync 5 0x%s' % SYNC, 'sync 5 1 %s' % spaced, 'sync 5 %s' % coloned,
             'sync 5 1 %s' % coloned, 'sync 5 %s %s' % (SYNC[:10], SYNC[10:]), 'sync 5 %s\r' % SYNC.upper()]
    outs = [details_only(tool('-e', f)[1]) for f in forms]
    check(g, 'every form decodes', all(b'CDMA_FREQ = 25' in o for o in outs), repr(outs[0][:60]))
    check(g, 'every form gives the same text', all(o == outs[0] for o in outs),
          '\n'.join('%s: %d' % (f, o == outs[0]) for f, o in zip(forms, outs)))
    # A capsule: the same message with its length octet, and a complete General Page.
    rc, out, err = tool('--capsule', '-e', 'sync 5 ' + SYNC_CAPSULE)
    check(g, '--capsule gives the text of the message', rc == 0 and details_only(out) == outs[0], err.decode())
    rc, out, err = tool('--capsule', '-e', 'paging 6 1 ' + GPM9)
    check(g, '--capsule: a message ending at its CRC is complete', rc == 0 and b'(result' not in out, out.decode())
    rc, out, err = tool('-e', 'paging 6 1 ' + GPM9[2:])
    check(g, 'without --capsule the same message is short', b'(result 3' in out, out.decode())
    rc, out, err = tool('--capsule', '-e', 'paging 6 1 ' + GPM9 + '00')
    check(g, '--capsule: a MSG_LENGTH that does not count the octets', rc == 1 and b'MSG_LENGTH is 9' in err, err.decode())


def places():
    g = 'places'
    rc, out, err = tool('examples/sync.txt', '-', cwd=SRC, stdin=b'\n# x\nsync 5 ' + SYNC.encode() + b'\n')
    names = [l for l in out.split(b'\n') if l.endswith(b'OVN_SCH_MSG_ID_SCHM')]
    want_lines = [str(n + 1).encode() for n, l in enumerate(open(os.path.join(SRC, 'examples/sync.txt')))
                  if l.startswith('sync')]
    check(g, 'FILE:LINE on every name line',
          [l.split(b': ')[0] for l in names] == [b'examples/sync.txt:' + n for n in want_lines] + [b'<stdin>:3'],
          repr(names))
    rc, out, err = tool('-e', 'sync 5 ' + SYNC, '-e', 'sync 5 ' + SYNC, '--summary')
    check(g, '-e:N', out == b'-e:1: OVN_SCH_MSG_ID_SCHM\n-e:2: OVN_SCH_MSG_ID_SCHM\n', out)
    rc, out, err = tool('--json', 'examples/sync.txt', cwd=SRC)
    objs = [json.loads(l) for l in out.splitlines()]
    check(g, '--json: "source" is FILE:LINE', [o['source'] for o in objs] == ['examples/sync.txt:' + n.decode()
                                                                              for n in want_lines], out[:200])


def order_on_one_terminal():
    """Errors and decodes written to the same place come in input order."""
    g = 'order'
    p = subprocess.run([TOOL, '--summary'], input=('sync 5 %s\nsync 5 zz\nsync 5 %s\n' % (SYNC, SYNC)).encode(),
                       stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    lines = [l.split(b': ')[0 if l.startswith(b'<') else 1] for l in p.stdout.splitlines()]
    check(g, 'line 1, the error of line 2, line 3', lines == [b'<stdin>:1', b'<stdin>:2', b'<stdin>:3'], p.stdout)


def line_ends():
    g = 'line ends'
    for args in (['examples/paging.txt', 'examples/forward_traffic.txt'], ['--summary', 'examples/paging.txt'],
                 ['--json', 'examples/paging.txt'], ['--capsule', '-e', 'paging 6 1 ' + GPM9[:-2] + '00']):
        _, lf, _ = tool(*args, cwd=SRC)
        _, crlf, _ = tool('--crlf', *args, cwd=SRC)
        check(g, '%s: no CR without --crlf' % args[0], b'\r' not in lf)
        check(g, '%s: --crlf ends every line, name and result lines too, in CR LF' % args[0],
              crlf.count(b'\n') == crlf.count(b'\r\n') > 0 and crlf.replace(b'\r\n', b'\n') == lf, crlf[:120])


def json_lines():
    g = 'json'
    for f in sorted(os.listdir(os.path.join(SRC, 'examples'))):
        if not f.endswith('.txt'):
            continue
        rc, out, err = tool('--json', 'examples/' + f, cwd=SRC)
        _, text, _ = tool('examples/' + f, cwd=SRC)
        objs = []
        try:
            objs = [json.loads(l) for l in out.splitlines()]
        except ValueError as e:
            check(g, f + ': every line is a JSON object', False, str(e))
        names = [l.split(b': ', 1)[1].decode() for l in text.split(b'\n') if l.startswith(b'examples/')]
        check(g, f + ': one object per message, with its name', [o['name'] for o in objs] == names)
        check(g, f + ': the members', all({'source', 'channel', 'p_rev', 'band_class', 'name', 'records', 'result'}
                                          <= o.keys() for o in objs))
    rc, out, err = tool('--json', '--summary', '-e', 'sync 5 ' + SYNC)
    check(g, '--json --summary', json.loads(out) == {'source': '-e:1', 'channel': 'sync', 'name': 'OVN_SCH_MSG_ID_SCHM'},
          out)
    # --all-broadcast: a broadcast message the paging dispatch leaves undecoded by default.
    line = 'paging 6 1 1c' + '00' * 12
    _, plain, _ = tool('--json', '-e', line)
    _, every, _ = tool('--json', '--all-broadcast', '-e', line)
    check(g, '--all-broadcast reaches the decoder', json.loads(plain)['records'] != json.loads(every)['records'],
          plain + b'\n' + every)


def hdlc(payload):
    """A DIAG frame: the payload, its X.25 CRC-16, escapes, the flag."""
    crc = 0xFFFF
    for b in payload:
        crc ^= b
        for _ in range(8):
            crc = (crc >> 1) ^ 0x8408 if crc & 1 else crc >> 1
    body = payload + struct.pack('<H', crc ^ 0xFFFF)
    out = bytearray()
    for b in body:
        out += bytes([0x7D, b ^ 0x20]) if b in (0x7D, 0x7E) else bytes([b])
    return bytes(out) + b'\x7e'


def log_item(code, ts, payload):
    return struct.pack('<HHQ', 12 + len(payload), code, ts) + payload


def diag_logs(tmp):
    g = 'diag'
    ts = 0xd152529ce03fcb          # 2015-08-16 18:57:18.360, GPS time
    sync = bytes.fromhex(SYNC_CAPSULE)
    gpm = bytes.fromhex(GPM9)
    bad = bytearray(gpm)
    bad[-1] ^= 1
    items = [log_item(0x1006, ts, sync), log_item(0xb0c0, ts, b'\x7e\x7d other'),
             log_item(0x1007, ts + (800 << 16), gpm), log_item(0x1007, ts, bytes(bad))]
    stream = b'\x7e'.join([b'partial frame'] + [b''] * 0) + b'\x7e'
    stream += b''.join(hdlc(b'\x10\x00' + struct.pack('<H', len(i)) + i) for i in items)
    stream += hdlc(b'\x4b\x12\x00\x00')  # a response: no log item
    qmdl, dlf = os.path.join(tmp, 'x.qmdl'), os.path.join(tmp, 'x.dlf')
    open(qmdl, 'wb').write(stream)
    open(dlf, 'wb').write(b''.join(items))
    for path in (qmdl, dlf):
        rc, out, err = tool('--diag', '--band-class', '1', path)
        names = [l for l in out.decode().split('\n') if l[:1].isdigit()]
        check(g, path[-4:] + ': the 1x messages with their timestamps and P_REVs', names == [
            '2015-08-16 18:57:18.360 sync p_rev=5: OVN_SCH_MSG_ID_SCHM',
            '2015-08-16 18:57:19.360 paging p_rev=5: OVN_DPCH_MSG_ID_GPM'], '\n'.join(names))
        check(g, path[-4:] + ': a complete capsule decodes whole', b'(result' not in out, out.decode())
        check(g, path[-4:] + ': a bad CRC is reported, not decoded', b'CRC-30 does not check; not decoded' in err,
              err.decode())
        check(g, path[-4:] + ': the count of what was skipped',
              re.search(rb'2 1x signalling messages decoded, 1 not decodable; skipped 1 other log items', err)
              is not None, err.decode())
        check(g, path[-4:] + ': exit 0', rc == 0)
    rc, out, err = tool('--diag', '--band-class', '1', stdin=open(qmdl, 'rb').read())
    check(g, 'a log on standard input', b'18:57:19.360 paging p_rev=5: OVN_DPCH_MSG_ID_GPM' in out, err.decode())
    rc, out, err = tool('--diag', '--p-rev', '3', qmdl)
    check(g, '--p-rev fixes the P_REV', b'paging p_rev=3: OVN_DPCH_MSG_ID_GPM' in out, out.decode())
    rc, out, err = tool('--diag', '--json', qmdl)
    o = json.loads(out.splitlines()[1])
    check(g, '--json: timestamp, log code and capsule', (o['timestamp'], o['log_code'], o['capsule']) ==
          ('2015-08-16 18:57:19.360', 0x1007, GPM9), out)
    rc, out, err = tool('--dlf', qmdl)
    check(g, '--dlf reads any file as .dlf', b'0 1x signalling messages decoded' in err, err.decode())

    # The P_REV follows the Sync Channel Message, then the Extended System Parameters Message
    # (a real one announcing P_REV 6), no higher than --mob-p-rev.
    espm = bytes.fromhex('190d271a7ffff1000060138402291171ffffeb540015170fbe')
    seq = [log_item(0x1007, ts, gpm), log_item(0x1006, ts, sync), log_item(0x1007, ts, gpm),
           log_item(0x1007, ts, espm), log_item(0x1007, ts, gpm)]
    open(dlf, 'wb').write(b''.join(seq))
    for args, want in ((['--band-class', '1'], ['6', '5', '5', '6', '6']), (['--mob-p-rev', '5'], ['5', '5', '5', '5', '5']),
                       (['--p-rev', '7'], ['7'] * 5)):
        rc, out, err = tool('--diag', *(args + [dlf]))
        got = re.findall(rb'p_rev=(\d+): ', out)
        check(g, 'P_REV in use with %s' % ' '.join(args), [x.decode() for x in got] == want, repr(got))

    # A traffic channel item is decoded only when it checks as a capsule (length octet and
    # CRC-16); the others are reported as of unverified format.
    body = bytes.fromhex('112e6db0e40a79baf42960832a242041e0')   # an EHDM, no CRC
    cap = bytes([len(body) + 3]) + body
    crc = 0xFFFF
    for bit in ''.join('{:08b}'.format(b) for b in cap):
        fb = ((crc >> 15) & 1) ^ int(bit)
        crc = (crc << 1) & 0xFFFF
        if fb:
            crc ^= 0x1021
    good = cap + struct.pack('>H', crc ^ 0xFFFF)
    open(dlf, 'wb').write(log_item(0x1008, ts, good) + log_item(0x1005, ts, b'\x05\x01\x02\x03\x04\x05'))
    rc, out, err = tool('--diag', dlf)
    check(g, 'a traffic capsule whose CRC-16 checks is decoded whole',
          b'ftc p_rev=6: OVN_FDTCH_MSG_TYPE_EHDM' in out and b'(result' not in out, out.decode())
    check(g, 'a traffic item that is no capsule is reported as unverified',
          b'rtc log item (0x1005)' in err and b'format is unverified' in err, err.decode())


def streaming():
    """A message written to a pipe is decoded and written out before the pipe closes."""
    g = 'streaming'
    import select
    p = subprocess.Popen([TOOL, '--summary'], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
    try:
        p.stdin.write(('sync 5 %s\n' % SYNC).encode())
        p.stdin.flush()
        ready = select.select([p.stdout], [], [], 10)[0]
        line = p.stdout.readline() if ready else b''
        check(g, 'the name line comes while the input is still open', line == b'<stdin>:1: OVN_SCH_MSG_ID_SCHM\n', line)
    finally:
        p.stdin.close()
        p.wait()


def large_inputs(tmp):
    """Inputs read in blocks: lines and frames across block boundaries, a line longer than a block."""
    g = 'large inputs'
    path = os.path.join(tmp, 'many.txt')
    n = 60000
    with open(path, 'w') as f:
        for i in range(n):
            f.write('sync 5 %s%s\n' % (SYNC, ' ' * (i % 7)))
        f.write('sync 5 1 ' + '00' * 1500000 + '\n')                  # 3 MB of hex on one line
        f.write('sync 5 ' + SYNC)                                      # no line end at the end
    rc, out, err = tool('--summary', path)
    lines = out.split(b'\n')
    want = ['%s:%d: OVN_SCH_MSG_ID_SCHM' % (path, i + 1) for i in range(n)] + \
           ['%s:%d: MSG_0' % (path, n + 1), '%s:%d: OVN_SCH_MSG_ID_SCHM' % (path, n + 2), '']
    check(g, 'every line once, in order', rc == 0 and [l.decode() for l in lines] == want,
          err.decode() + repr([l for l, w in zip(lines, want) if l.decode() != w][:3]))
    items = b''
    for i in range(30000):
        items += hdlc(b'\x10\x00' + struct.pack('<H', 12 + 26) + log_item(0x1006, i << 16, bytes.fromhex(SYNC_CAPSULE)))
    items += b'\x01\x02\x7e'                                         # a damaged frame
    big = os.path.join(tmp, 'big.qmdl')
    open(big, 'wb').write(items)
    rc, out, err = tool('--diag', '--summary', big)
    check(g, 'every frame of a log larger than a block', out.count(b'OVN_SCH_MSG_ID_SCHM') == 30000 and
          b'30000 1x signalling messages decoded, 0 not decodable; skipped 0 other log items, 0 other DIAG frames, '
          b'1 damaged frames' in err, err.decode())
    # An escape octet as the last octet of the first block read (1 MiB), and of the one before.
    escaped_item = hdlc(b'\x10\x00' + struct.pack('<H', 16) + log_item(0x1006, 0x7e7d, b'\x7d\x7e\x7d\x7e'))
    sync_frame = hdlc(b'\x10\x00' + struct.pack('<H', 12 + 26) + log_item(0x1006, 0, bytes.fromhex(SYNC_CAPSULE)))
    for at in (2 ** 20 - 1, 2 ** 20 - 2):
        stream = b'\x7e' * (at - escaped_item.index(b'\x7d')) + escaped_item + sync_frame
        open(big, 'wb').write(stream)
        rc, out, err = tool('--diag', '--summary', big)
        check(g, 'an escape at octet %d' % at, b'1 1x signalling messages decoded, 1 not decodable' in err and
              b'0 damaged frames' in err and out.count(b'OVN_SCH_MSG_ID_SCHM') == 1, err.decode())


def main():
    global TOOL, SRC
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    TOOL, SRC = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
    tmp = tempfile.mkdtemp()
    try:
        write_errors()
        files_and_arguments(tmp)
        bad_lines()
        hex_forms()
        places()
        order_on_one_terminal()
        line_ends()
        json_lines()
        diag_logs(tmp)
        large_inputs(tmp)
        streaming()
    finally:
        shutil.rmtree(tmp)
    for f in failures:
        print('FAIL', f)
    print('%d passed, %d failed' % (checks - len(failures), len(failures)))
    sys.exit(1 if failures else 0)


if __name__ == '__main__':
    main()

"""The Python module against the repository's examples and logs it writes itself.

Run with the built module on the path: PYTHONPATH=build/python python3 -m pytest python/tests
(ctest does so). SORRELIN_CORPUS, when set, names a directory of real captures outside the
repository (e.g. ../shared/corpus) for one more test.
"""
import json
import os
import pathlib
import re
import struct

import pytest

import sorrelin

SRC = pathlib.Path(__file__).resolve().parents[2]
SYNC = bytes.fromhex('010501206200084e390167a5fbcd152529cc472806444445b2')   # real, band class 1
GPM9 = bytes.fromhex('0911342e803a70dec1')   # a real General Page capsule ending at its CRC
RESULT_LINES = {3: '(result 3: the message ends before a field its layout requires)\n',
                1: '(result 1: a count exceeds its capacity, or the message is not decoded at this P_REV)\n'}


def example_lines(path):
    """(line number, channel, p_rev, band_class, octets) of an example capture file."""
    for n, line in enumerate(path.read_text().splitlines(), 1):
        words = line.split('#')[0].split()
        if not words:
            continue
        band = int(words[2]) if len(words) == 4 else 0
        yield n, words[0], int(words[1]), band, bytes.fromhex(words[-1])


@pytest.mark.parametrize('name', sorted(p.stem for p in (SRC / 'examples').glob('*.txt')))
def test_examples_round_trip(name):
    """Every example decodes through the module to the text the tool pins in its .ok file."""
    d = sorrelin.Decoder()
    out = []
    for n, channel, p_rev, band, octets in example_lines(SRC / 'examples' / (name + '.txt')):
        m = d.decode(channel, p_rev, octets, band_class=band)
        out.append('examples/%s.txt:%d: %s\n%s%s\n' % (name, n, m['name'], m['text'], RESULT_LINES.get(m['result'], '')))
    assert ''.join(out) == (SRC / 'examples' / (name + '.ok')).read_text()


@pytest.mark.parametrize('name', sorted(p.stem for p in (SRC / 'examples').glob('*.txt')))
def test_fields_hold_every_printed_field(name):
    """The field tree names every field of the text, with the text's values."""
    for n, channel, p_rev, band, octets in example_lines(SRC / 'examples' / (name + '.txt')):
        m = sorrelin.decode(channel, p_rev, octets, band_class=band)
        json.dumps(m['fields'])                       # plain data, fit for JSON
        values = {}

        def walk(node):
            if isinstance(node, list):
                for x in node:
                    walk(x)
            elif isinstance(node, dict):
                for k, v in node.items():
                    if isinstance(v, (int, str)) and not k.endswith('.annotation') and k != '@record':
                        values.setdefault(k, set()).add(v)
                    elif isinstance(v, list) and all(isinstance(x, (int, str)) for x in v):
                        values.setdefault(k, set()).update(v)
                    else:
                        walk(v)
        walk(m['fields'])
        for k, v in re.findall(r'^ *(\w+)(?:\[\d+\])? = (-?\d+|0x[0-9a-f]+)(?: \(|$)', m['text'], re.M):
            want = int(v) if not v.startswith('0x') else v
            assert k in values and (want in values[k] or (isinstance(want, int) and want % 2**32 in values[k])), \
                '%s:%d: %s = %s not in the fields' % (name, n, k, v)


def test_decode_arguments():
    m = sorrelin.decode('sync', 5, SYNC, band_class=1)
    assert (m['channel'], m['p_rev'], m['band_class'], m['result'], m['name']) == \
           ('sync', 5, 1, 0, 'OVN_SCH_MSG_ID_SCHM')
    assert m['fields'][0]['@record'] == 'FC_SCHM' and m['fields'][0]['SYS_TIME'] == '0x0345494a73'
    assert sorrelin.decode(1, 5, bytearray(SYNC), band_class=1) == m
    assert sorrelin.decode('sync', 5, memoryview(SYNC), band_class=1) == m
    for bad in (dict(channel='fwd'), dict(channel=0), dict(channel=6), dict(p_rev=256), dict(p_rev=-1),
                dict(band_class=300), dict(data=b'')):
        args = dict(channel='sync', p_rev=5, data=SYNC)
        args.update(bad)
        with pytest.raises(ValueError):
            sorrelin.decode(**args)
    with pytest.raises(TypeError):
        sorrelin.decode('sync', 5, SYNC.hex())


def test_capsules():
    assert sorrelin.decode('paging', 6, GPM9, capsule=True)['result'] == 0
    assert sorrelin.decode('paging', 6, GPM9[1:])['result'] == 3
    assert sorrelin.decode('sync', 5, bytes([len(SYNC) + 1]) + SYNC, band_class=1, capsule=True)['text'] == \
        sorrelin.decode('sync', 5, SYNC, band_class=1)['text']
    with pytest.raises(ValueError, match='MSG_LENGTH is 9'):
        sorrelin.decode('paging', 6, GPM9 + b'\0', capsule=True)


def test_every_byte_string_gives_a_result():
    for ch in ('sync', 'paging', 'access', 'ftc', 'rtc'):
        for n in range(1, 40):
            for data in (bytes(n), b'\xff' * n, bytes(range(n))):
                assert sorrelin.decode(ch, 6, data)['result'] in (0, 1, 3)


def test_all_broadcast():
    data = bytes.fromhex('1c' + '00' * 12)
    assert sorrelin.decode('paging', 6, data)['fields'] != sorrelin.decode('paging', 6, data, all_broadcast=True)['fields']


# DIAG logs written here: HDLC frames (X.25 CRC-16, escapes) and .dlf records.

def hdlc(payload):
    crc = 0xFFFF
    for b in payload:
        crc ^= b
        for _ in range(8):
            crc = (crc >> 1) ^ 0x8408 if crc & 1 else crc >> 1
    out = bytearray()
    for b in payload + struct.pack('<H', crc ^ 0xFFFF):
        out += bytes([0x7D, b ^ 0x20]) if b in (0x7D, 0x7E) else bytes([b])
    return bytes(out) + b'\x7e'


def item(code, ts, payload):
    return struct.pack('<HHQ', 12 + len(payload), code, ts) + payload


TS = 0xd152529ce03fcb   # 2015-08-16 18:57:18.360 (GPS time)
ESPM = bytes.fromhex('190d271a7ffff1000060138402291171ffffeb540015170fbe')   # announces P_REV 6


def test_read_diag(tmp_path):
    items = [item(0x1006, TS, bytes([26]) + SYNC), item(0x1007, TS, GPM9), item(0xb0c0, TS, b'\x7e\x7d'),
             item(0x1007, TS + (16 << 16), ESPM), item(0x1007, TS, GPM9[:-1] + b'\0')]
    qmdl = tmp_path / 'x.qmdl'
    qmdl.write_bytes(b''.join(hdlc(b'\x10\x00' + struct.pack('<H', len(i)) + i) for i in items) + b'junk\x7e')
    dlf = tmp_path / 'x.dlf'
    dlf.write_bytes(b''.join(items))
    for path in (qmdl, dlf):
        log = sorrelin.read_diag(str(path), band_class=1)
        ms = list(log)
        assert [(m['timestamp'], m['channel'], m['p_rev'], m['name'], m['result']) for m in ms] == [
            ('2015-08-16 18:57:18.360', 'sync', 5, 'OVN_SCH_MSG_ID_SCHM', 0),
            ('2015-08-16 18:57:18.360', 'paging', 5, 'OVN_DPCH_MSG_ID_GPM', 0),
            ('2015-08-16 18:57:18.380', 'paging', 6, 'OVN_DPCH_MSG_ID_ESPM', 0),
            ('2015-08-16 18:57:18.360', 'paging', 6, 'OVN_DPCH_MSG_ID_GPM', None)]
        assert ms[3]['error'] == 'its CRC-30 does not check' and ms[3]['text'] == ''
        assert ms[1]['capsule'] == GPM9 and ms[1]['log_code'] == 0x1007
        assert ms[2]['time'] - ms[0]['time'] == pytest.approx(0.02)
        assert log.counts['other_log_items'] == 1
    assert sorrelin.read_diag(str(qmdl)).counts['damaged_frames'] == 0
    log = sorrelin.read_diag(str(qmdl))
    list(log)
    assert log.counts['damaged_frames'] == 1   # the junk at the end
    assert [m['p_rev'] for m in sorrelin.read_diag(str(qmdl), p_rev=3)] == [3] * 4
    assert [m['p_rev'] for m in sorrelin.read_diag(str(qmdl), mob_p_rev=4)] == [4] * 4
    assert list(sorrelin.read_diag(str(qmdl), dlf=True)) == []
    with pytest.raises(ValueError, match='is a directory'):
        sorrelin.read_diag(str(tmp_path))


def test_read_diag_example_matches_the_tool():
    """The example log read by the module gives the tool's text of it."""
    want = (SRC / 'examples' / 'sprint_excerpt.ok').read_text()
    got = ''.join('%s %s p_rev=%d: %s\n%s%s\n' % (m['timestamp'], m['channel'], m['p_rev'], m['name'], m['text'],
                                                RESULT_LINES.get(m['result'], ''))
                  for m in sorrelin.read_diag(str(SRC / 'examples' / 'sprint_excerpt.qmdl'), band_class=1))
    assert got == want


@pytest.mark.skipif(not os.environ.get('SORRELIN_CORPUS'), reason='SORRELIN_CORPUS (outside the repository) not set')
def test_real_log_outside_repository():
    ms = list(sorrelin.read_diag(os.path.join(os.environ['SORRELIN_CORPUS'], 'logs', 'sprint.mi2log'), band_class=1))
    assert len(ms) == 161 and all(m['result'] == 0 for m in ms)


def test_notebook_example_runs():
    """The notebook example of examples/ runs to its end."""
    import subprocess
    import sys
    p = subprocess.run([sys.executable, str(SRC / 'examples' / 'notebook.py')], capture_output=True, text=True)
    assert p.returncode == 0, p.stderr
    assert 'pilot PNs of the neighbours: [33, 75,' in p.stdout

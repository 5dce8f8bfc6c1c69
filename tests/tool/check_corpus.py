#!/usr/bin/python3
"""The tool against a real phone log and its hand-checked messages.

Reads a corpus of real 1x messages OUTSIDE this repository (the directory given, e.g.
../shared/corpus): logs/sprint.mi2log, a DIAG log recorded on a phone, and
mobileinsight_sprint_2015.txt, one line per distinct 1x message of that log with its capsule,
the number of times it occurs and field values decoded by hand ("own-decode: NAME=value ...").

Checks that `sorrelin --diag` finds every such message as often as the log holds it, each with
a log timestamp on its name line and result 0, that every hand-decoded value whose name is a
field name of the decode agrees with it, and that the capsules, given as --capsule lines,
decode with result 0.
Usage: check_corpus.py TOOL CORPUS_DIR
"""
import collections
import json
import re
import subprocess
import sys

TS = re.compile(r'^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} (sync|paging|access|ftc|rtc) p_rev=\d+: \S')


def run(tool, args, stdin=None):
    p = subprocess.run([tool] + args, input=stdin, capture_output=True, check=False)
    if p.returncode != 0:
        sys.exit('%s %s: exit %d\n%s' % (tool, ' '.join(args), p.returncode, p.stderr.decode(errors='replace')))
    return p.stdout.decode()


def flatten(node, into):
    """Every field of a decoded message: name -> its values in print order."""
    if isinstance(node, list):
        for v in node:
            flatten(v, into)
    elif isinstance(node, dict):
        for k, v in node.items():
            if isinstance(v, (dict, list)) and not (isinstance(v, list) and all(isinstance(x, (int, str)) for x in v)):
                flatten(v, into)
            elif isinstance(v, list):
                into[k].extend(v)
            elif k != '@record':
                into[k].append(v)
    return into


def number(v):
    if isinstance(v, int):
        return v
    v = str(v)
    return int(v, 16) if v.lower().startswith('0x') else int(v)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    tool, corpus = sys.argv[1:]
    log = corpus + '/logs/sprint.mi2log'
    expected = []
    for line in open(corpus + '/mobileinsight_sprint_2015.txt'):
        if line.startswith('#') or not line.strip():
            continue
        words, comment = line.split('#', 1)
        channel, p_rev = words.split()[:2]
        capsule = re.search(r'capsule=([0-9a-f]+)', comment).group(1)
        times = int(re.search(r' x(\d+);', comment).group(1))
        values = dict(re.findall(r'(\w+(?:\([^)]*\))?)=(\S+)', comment.split('own-decode:')[1]))
        expected.append((channel, p_rev, capsule, times, values))

    decoded = collections.defaultdict(list)
    for line in run(tool, ['--json', '--band-class', '1', '--diag', log]).splitlines():
        o = json.loads(line)
        decoded[o['capsule']].append(o)
    text = run(tool, ['--band-class', '1', '--diag', log])
    names = [l for l in text.splitlines() if l and not l[0].isspace() and l[0] not in '{}' and ': ' in l and l[0].isdigit()]
    if len(names) != sum(len(v) for v in decoded.values()) or not all(TS.match(l) for l in names):
        sys.exit('name lines without a timestamp, or not one per message:\n' + '\n'.join(names[:5]))

    failures, compared, unnamed = [], 0, collections.Counter()
    for channel, p_rev, capsule, times, values in expected:
        got = decoded.get(capsule, [])
        if len(got) != times:
            failures.append('%s: %d times in the log, %d decoded' % (capsule, times, len(got)))
            continue
        for o in got:
            if o['result'] != 0 or o['channel'] != channel:
                failures.append('%s: result %d on %s' % (capsule, o['result'], o['channel']))
        fields = flatten(got[0]['records'], collections.defaultdict(list))
        for k, v in values.items():
            if k.endswith('(s)'):
                want = [number(x) for x in v.split(',')]
                have = [number(x) for x in fields.get(k[:-3], [])]
                ok = have == want
            elif k in fields:
                want = number(v) if re.fullmatch(r'(0x)?[0-9a-fA-F]+', v) else v
                have = [number(x) if isinstance(want, int) else x for x in fields[k]]
                ok = want in have
            else:
                unnamed[k] += 1
                continue
            compared += 1
            if not ok:
                failures.append('%s: %s = %s by hand, decoded %s' % (capsule, k, v, have))

    # The capsules as --capsule lines: complete messages, so result 0.
    lines = ''.join('%s %s 1 %s\n' % (c, p, cap) for c, p, cap, _, _ in expected)
    for n, line in enumerate(run(tool, ['--capsule', '--json'], lines.encode()).splitlines()):
        o = json.loads(line)
        if o['result'] != 0:
            failures.append('capsule line %d (%s): result %d' % (n + 1, o['name'], o['result']))

    for f in failures:
        print('FAIL', f)
    print('corpus: %d messages (%d log items) found with timestamps; %d hand-decoded values agree; '
          'names that are no field of the decode: %s'
          % (len(expected), sum(e[3] for e in expected), compared - sum(1 for f in failures if ' by hand' in f),
             ' '.join(sorted(unnamed))))
    sys.exit(1 if failures else 0)


if __name__ == '__main__':
    main()

#!/usr/bin/env python3
"""Shows how the golden cases' texts differ from what the decoder prints now, and takes an
intended change where it only adds or removes lines that carry no bits.

    SORRELIN_GOLDEN_OUT=/tmp/g.txt build/debug/sorrelin_tests --gtest_filter='Goldens*'
    scripts/golden_update.py /tmp/g.txt          # show the differences
    scripts/golden_update.py --write /tmp/g.txt  # take those that need no new bits

A changed value, or a line with a width in its margin that is gone, is only shown: such a
case is edited by hand, from the standard's field table."""
import difflib
import sys


def main():
    write = '--write' in sys.argv
    dump = [a for a in sys.argv[1:] if a != '--write'][0]
    records = open(dump).read().split('\x1e\n')
    by_file = {}
    for rec in records:
        if not rec.strip():
            continue
        head, text = rec.split('\n', 1)
        path, line, rc = head.split('\t')
        by_file.setdefault(path, []).append((int(line), text.split('\n')[:-1] if text.endswith('\n') else text.split('\n')))
    for path, cases in by_file.items():
        lines = open(path).read().split('\n')
        # Work from the last case up, so that line numbers stay valid.
        for start, got in sorted(cases, reverse=True):
            end = start
            while end < len(lines) and lines[end].strip() and not lines[end].startswith('case '):
                end += 1
            body = lines[start:end]   # the case's margin|text lines
            want = [l.split('|', 1)[1] for l in body if '|' in l and l.split('|', 1)[1]]
            print(f'{path}:{start}')
            for d in difflib.unified_diff(want, got, lineterm='', n=1):
                print('   ', d)
            ops = difflib.SequenceMatcher(a=want, b=got, autojunk=False).get_opcodes()
            if any(op in ('replace',) for op, *_ in ops):
                print('    (values changed: edit by hand)')
                continue
            # Map text lines to body indexes.
            text_at = [i for i, l in enumerate(body) if '|' in l and l.split('|', 1)[1]]
            new = list(body)
            ok = True
            for op, a0, a1, b0, b1 in reversed(ops):
                if op == 'delete':
                    for k in range(a0, a1):
                        if body[text_at[k]].split('|', 1)[0].strip():
                            ok = False
                    del new[text_at[a0]:text_at[a1 - 1] + 1]
                elif op == 'insert':
                    at = text_at[a0] if a0 < len(text_at) else len(body)
                    new[at:at] = ['      |' + g for g in got[b0:b1]]
            if not ok:
                print('    (a line with bits is gone: edit by hand)')
                continue
            if write:
                lines[start:end] = new
        if write:
            open(path, 'w').write('\n'.join(lines))


if __name__ == '__main__':
    main()

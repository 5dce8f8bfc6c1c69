#!/usr/bin/python3
"""Static checks of a Windows DLL (32-bit code cannot run on these machines): its machine
type, its exports (exactly the C entry points, by undecorated name), its imports (system DLLs
only) and its string table (ids 1 and 2).

    scripts/check_windows.py build/windows-x86/cdmaSorrelin.dll i386"""
import sys

import pefile

EXPORTS = {
    "ovnDecodeDetails", "ovnDecodeSummary",
    "fnSorrelinFC_SCHBlock", "fnSorrelinFC_PCHBlock", "fnSorrelinRC_ACHBlock", "fnSorrelinFDTCHBlock",
    "fnSorrelinRDTCHBlock", "fnSorrelinFC_SCHBlockPeer", "fnSorrelinFC_PCHBlockPeer",
    "fnSorrelinRC_ACHBlockPeer", "fnSorrelinFDTCHBlockPeer", "fnSorrelinRDTCHBlockPeer",
    "sorrelin_details", "sorrelin_summary", "sorrelin_details_bound",
}
# DLLs every Windows has; msvcrt is the C runtime mingw-w64 links against.
SYSTEM = {"kernel32.dll", "user32.dll", "msvcrt.dll", "advapi32.dll"}
STRINGS = {1: "invalid channel type = %d", 2: "unknown message: msg id = %d"}
MACHINES = {"i386": 0x14C, "amd64": 0x8664}


def string_table(pe):
    out = {}
    for kind in pe.DIRECTORY_ENTRY_RESOURCE.entries:
        if kind.id != pefile.RESOURCE_TYPE["RT_STRING"]:
            continue
        for block in kind.directory.entries:
            for lang in block.directory.entries:
                data = pe.get_data(lang.data.struct.OffsetToData, lang.data.struct.Size)
                at = 0
                for i in range(16):   # a block holds 16 strings, each length-prefixed UTF-16
                    n = int.from_bytes(data[at:at + 2], "little")
                    at += 2
                    if n:
                        out[(block.id - 1) * 16 + i] = data[at:at + 2 * n].decode("utf-16-le")
                    at += 2 * n
    return out


def main():
    path, machine = sys.argv[1], sys.argv[2]
    pe = pefile.PE(path)
    problems = []
    if pe.FILE_HEADER.Machine != MACHINES[machine]:
        problems.append("machine 0x%x, not %s" % (pe.FILE_HEADER.Machine, machine))
    exports = {e.name.decode() for e in pe.DIRECTORY_ENTRY_EXPORT.symbols if e.name}
    if exports != EXPORTS:
        problems.append("exports differ: extra %s, missing %s" % (sorted(exports - EXPORTS), sorted(EXPORTS - exports)))
    imports = {i.dll.decode().lower() for i in pe.DIRECTORY_ENTRY_IMPORT}
    if not imports <= SYSTEM:
        problems.append("imports beyond system DLLs: %s" % sorted(imports - SYSTEM))
    strings = string_table(pe)
    if strings != STRINGS:
        problems.append("string table %s" % strings)
    if problems:
        print("%s: %s" % (path, "; ".join(problems)))
        sys.exit(1)
    print("%s: %s, %d exports by name, imports %s, string table 1 and 2" %
          (path, machine, len(exports), ", ".join(sorted(imports))))


main()

# %% [markdown]
# # Decoding CDMA2000 1x signalling from Python
#
# A notebook in cells ("# %%", as VS Code, Spyder and Jupytext read them); it also runs as a
# script. Build the module first, then put it on the path:
#
#     cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release && cmake --build build
#     PYTHONPATH=build/python python3 examples/notebook.py

# %%
import collections
import pathlib

import sorrelin

here = pathlib.Path(__file__).resolve().parent

# %% [markdown]
# ## One message
# A Sync Channel Message captured on a Sprint network (band class 1): the octets from the
# message type through the CRC. The result is a dict: the name, the result code (0 decoded,
# 1 a count beyond its capacity or not decoded at this P_REV, 3 too short), the detail text
# and the same fields as a tree.

# %%
m = sorrelin.decode('sync', 5, bytes.fromhex('010501206200084e390167a5fbcd152529cc472806444445b2'), band_class=1)
print(m['name'], m['result'])
print(m['text'])
sch = m['fields'][0]
print('SID %d NID %d PILOT_PN %d, system time %s' % (sch['SID'], sch['NID'], sch['PILOT_PN'], sch['SYS_TIME']))

# %% [markdown]
# ## A phone's log
# `read_diag` reads a Qualcomm DIAG log (.qmdl, .mi2log, .dlf) and yields its 1x signalling
# messages with their log timestamps; the P_REV follows what the base station announces. The
# file here is an excerpt of a real log recorded on Sprint in 2015 (from the MobileInsight
# project's test logs, Apache-2.0).

# %%
log = sorrelin.read_diag(str(here / 'sprint_excerpt.qmdl'), band_class=1)
messages = list(log)
print(len(messages), 'messages;', log.counts)
print(collections.Counter(m['name'] for m in messages).most_common())

# %% [markdown]
# ## Questions over many messages
# Which mobiles were paged, and when? The General Page's page records carry the IMSI and
# its reading as an annotation.

# %%
for m in messages:
    if m['name'] == 'OVN_DPCH_MSG_ID_GPM':
        for rec in m['fields']:
            if rec.get('@record') == 'L2_PAGE_RECORD' and 'IMSI_S' in rec:
                print(m['timestamp'], rec['IMSI_S.annotation'], 'service option', rec.get('SERVICE_OPTION'))

# %% [markdown]
# The neighbour list the phone was given, from the Extended Neighbor List Message:

# %%
enlm = next(m for m in messages if m['name'] == 'OVN_DPCH_MSG_ID_ENLM')


def find(node, key):
    """Every value of a field anywhere in a field tree."""
    if isinstance(node, dict):
        for k, v in node.items():
            if k == key:
                yield v
            yield from find(v, key)
    elif isinstance(node, list):
        for v in node:
            yield from find(v, key)


print('pilot PNs of the neighbours:', sorted(find(enlm['fields'], 'NGHBR_PN')))

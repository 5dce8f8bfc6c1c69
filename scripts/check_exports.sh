#!/usr/bin/env bash
# The shared library exports the C entry points and nothing else: the twelve of the original
# interface, the two bounded calls and the bound of their texts.
set -euo pipefail
lib=$1
want="fnSorrelinFC_PCHBlock fnSorrelinFC_PCHBlockPeer fnSorrelinFC_SCHBlock fnSorrelinFC_SCHBlockPeer
fnSorrelinFDTCHBlock fnSorrelinFDTCHBlockPeer fnSorrelinRC_ACHBlock fnSorrelinRC_ACHBlockPeer
fnSorrelinRDTCHBlock fnSorrelinRDTCHBlockPeer ovnDecodeDetails ovnDecodeSummary sorrelin_details sorrelin_summary sorrelin_details_bound"
got=$(nm -D --defined-only "$lib" | awk '{print $3}' | sort)
if [ "$got" != "$(echo $want | tr ' ' '\n' | sort)" ]; then
  echo "exported symbols differ:"; diff <(echo "$got") <(echo $want | tr ' ' '\n' | sort) || true
  exit 1
fi
echo "$(echo $want | wc -w) entry points exported, nothing else"

#!/usr/bin/env bash
# usage: fused_test.sh OBJDUMP FILE
# Prints the instructions of FILE that multiply and add in one step, rounding once where the formula
# rounds twice; fails when there are any.
set -euo pipefail

code=$("$1" -d --no-show-raw-insn "$2")
[[ $code =~ [[:space:]]ret ]] || { echo "fused_test: no code in $2" >&2 && exit 2; }
# Of 64-bit Arm: fmadd, fnmsub, fmla, fcmla, fmlal2, SVE's fmad and the like; of x86: vfmadd132sd ...
if grep -E '[[:space:]](v?fn?m(add?|su?b|l[as])|b?fml|fcmla)[a-z0-9]*[[:space:]]' <<<"$code"; then
    echo "fused_test: $2 has these" >&2
    exit 1
fi

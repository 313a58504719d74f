#!/usr/bin/env bash
# usage: fused_test.sh OBJDUMP FILE
# Prints the instructions of FILE that multiply and add in one step, rounding once where the formula
# rounds twice; fails when there are any.
set -euo pipefail

code=$("$1" -d --no-show-raw-insn "$2")
[[ $code =~ [[:space:]](ret|bx[[:space:]]+lr|br[[:space:]]+%r14) ]] ||
    { echo "fused_test: no code in $2" >&2 && exit 2; }
# Of 64-bit Arm: fmadd, fnmsub, fmla, which Apple's tools write fmla.2d, fcmla, fmlal2, SVE's fmad and
# the like; of 32-bit Arm: vfma.f64; of x86: vfmadd132sd; of s390x: madbr, wfmadb ...
fused='fn?m(add?|su?b|l[as])|b?fml|fcmla|[vw]fn?m[as]|m[as][de]b'
if grep -E "[[:space:]]($fused)[a-z0-9.]*[[:space:]]" <<<"$code"; then
    echo "fused_test: $2 has these" >&2
    exit 1
fi

#!/bin/sh
# Compiles the clients with what pkg-config says about the jt in a prefix, and runs them: with the shared
# library, then linked from static libraries alone, by the C compiler too, which has to be told then what the
# runtime of C++ is called.
#
# usage: pkg_config.sh PREFIX WORK_DIR (CC and CXX may name the compilers)
set -eu
clients=$(dirname "$0")/consumer
prefix=$1
program=$2/client
PKG_CONFIG_LIBDIR=$(dirname "$(find "$prefix" -name jt.pc)")
export PKG_CONFIG_LIBDIR

pkg-config --exists 'jt >= 4.3 jt < 5'
LD_LIBRARY_PATH=$(pkg-config --variable=libdir jt)
export LD_LIBRARY_PATH
[ -f "$LD_LIBRARY_PATH/libjt.so.4" ]
mkdir -p "$2"

# What pkg-config says is split into words on purpose.
# shellcheck disable=SC2046
try() {
  source=$clients/$1
  shift
  "$@" -o "$program" "$source" $(pkg-config --cflags --libs jt)
  "$program"
  "$@" -static -o "$program" "$source" $(pkg-config --static --cflags --libs jt)
  "$program"
}

try c/client.c "${CC:-cc}"
try cpp/client.cpp "${CXX:-c++}" -std=c++20

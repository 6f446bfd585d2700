#!/usr/bin/env bash
# The main job: installs what the demo needs (Debian), builds it and starts it on the shipped
# order book. Without a display it renders the window offscreen and writes a screenshot instead.
# Arguments go to the demo (for example --rows 1M).
set -euo pipefail
cd "$(dirname "$0")/.."
packages=(cmake g++ make qt6-base-dev libsqlite3-dev libpq-dev fonts-dejavu-core)
if ! dpkg -s "${packages[@]}" >/dev/null 2>&1; then
  sudo=""
  if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${packages[@]}"
fi
cmake -S . -B build-demo -DCMAKE_BUILD_TYPE=Release -DQUILTA_BUILD_TESTS=OFF \
  -DQUILTA_BUILD_BENCH=OFF >/dev/null
# Two jobs at most: the machines are shared.
jobs=$(( $(nproc) < 2 ? $(nproc) : 2 ))
cmake --build build-demo -j "$jobs" --target quilta_demo
demo=./build-demo/examples/demo/quilta_demo
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  shot="$PWD/build-demo/demo.png"
  echo "No display found: rendering the demo window offscreen."
  QT_QPA_PLATFORM=offscreen "$demo" "$@" --screenshot "$shot"
  echo "Open $shot to see it (or run this script again where a display is available)."
else
  exec "$demo" "$@"
fi

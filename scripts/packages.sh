# Sourced by the build scripts: gxcart_require_packages installs the Debian
# packages it is given that are missing (as root), or says what to install and
# fails (as another user).
gxcart_require_packages() {
  local missing=() p
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  if [ "$(id -u)" -ne 0 ]; then
    echo "Missing packages. Install them as root with:"
    echo "  apt-get install -y ${missing[*]}"
    return 1
  fi
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}"
}

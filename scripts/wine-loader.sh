# Sourced by the Wine scripts: $wine is the 64-bit loader. Debian's `wine` runs the 32-bit
# loader whenever 32-bit Wine is installed, and builtin programs such as regsvr32 and
# cscript would then work in the 32-bit view of the registry, beside the 64-bit DLL.
wine=/usr/lib/wine/wine64
[ -x "$wine" ] || wine=wine
export WINELOADER=$wine
# Debian's winepath runs the default loader too: in a prefix made without 32-bit Wine that
# loader cannot start. Windows paths come from the 64-bit one as well.
winepath() { "$wine" winepath.exe "$@"; }

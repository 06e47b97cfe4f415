# For scripts that examine a build: its settings, and the tools for the machine it is built for.
file(CONFIGURE OUTPUT build_tools.json CONTENT [[{
    "cxx": "@CMAKE_CXX_COMPILER@",
    "nm": "@CMAKE_NM@",
    "readelf": "@CMAKE_READELF@",
    "strip": "@CMAKE_STRIP@",
    "platform": "@platform_libraries@",
    "emulator": "@CMAKE_CROSSCOMPILING_EMULATOR@",
    "machine": "@CMAKE_SYSTEM_PROCESSOR@",
    "compiler": "@CMAKE_CXX_COMPILER_ID@ @CMAKE_CXX_COMPILER_VERSION@",
    "version": "@PROJECT_VERSION@",
    "toolchain": "@CMAKE_TOOLCHAIN_FILE@",
    "site": "@ORVGUI_SITE_ROOT@",
    "prefix": "@CMAKE_INSTALL_PREFIX@",
    "libdir": "@CMAKE_INSTALL_LIBDIR@"
}
]] @ONLY)

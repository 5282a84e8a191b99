# Options that turn memory errors into crashes rather than exploits. tests/scripts/hardening-test checks the program.

include(CheckCXXSourceCompiles)

# Sources of programs and libraries are compiled with the same options, so that both can use one precompiled header.
set(is_module "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>")
set(is_program "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>")
add_compile_options("$<IF:${is_module},-fPIC,-fPIE>" -fstack-protector-strong -fstack-clash-protection)
add_link_options("$<${is_program}:-pie>" -Wl,-z,relro,-z,now,-z,noexecstack)

if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
  add_compile_options(-fcf-protection)
elseif(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
  add_compile_options(-mbranch-protection=standard)
endif()

# _FORTIFY_SOURCE needs optimization, and the sanitizers check more.
if(NOT CORVANE_SANITIZE)
  set(CMAKE_REQUIRED_FLAGS "-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
  check_cxx_source_compiles("
    #include <cstdlib>
    #if __USE_FORTIFY_LEVEL < 3
    #error
    #endif
    int main() {}" CORVANE_HAS_FORTIFY_3)
  unset(CMAKE_REQUIRED_FLAGS)
  set(fortify_level "$<IF:$<BOOL:${CORVANE_HAS_FORTIFY_3}>,3,2>")
  add_compile_options(-U_FORTIFY_SOURCE "$<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=${fortify_level}>")
endif()

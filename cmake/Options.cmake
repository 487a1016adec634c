# The compiler options of every module.
add_library(frimbolate_options INTERFACE)
target_include_directories(frimbolate_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(frimbolate_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

# Hardening flags. _FORTIFY_SOURCE needs an optimised build; the others apply to every build.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
target_compile_options(frimbolate_options INTERFACE
  -fstack-protector-strong
  $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
# g++ 12 reports overlaps that cannot be in sums of texts once it has inlined them; they must not
# stop a build that the tests do not cover.
target_compile_options(frimbolate_options INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-error=restrict>)
if(NOT APPLE)
  target_link_options(frimbolate_options INTERFACE LINKER:-z,relro LINKER:-z,now)
endif()

if(FRIMBOLATE_SANITIZE)
  # "undefined" does not include float-cast-overflow.
  set(sanitizers address,undefined,float-cast-overflow)
  if(FRIMBOLATE_FUZZ)
    list(APPEND sanitizers fuzzer-no-link)
    list(JOIN sanitizers "," sanitizers)
  endif()
  target_compile_options(frimbolate_options INTERFACE
    -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(frimbolate_options INTERFACE -fsanitize=${sanitizers})
endif()
if(FRIMBOLATE_COVERAGE)
  target_compile_options(frimbolate_options INTERFACE --coverage -O0)
  target_link_options(frimbolate_options INTERFACE --coverage)
endif()

# The sources of a target in few batches: most of the compile time goes to the headers and templates
# that they share. Without it each source is compiled by itself, which is faster after a change and
# finds a missing include.
option(FRIMBOLATE_BATCHES "Compile several sources at once" OFF)
set(CMAKE_UNITY_BUILD ${FRIMBOLATE_BATCHES})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)

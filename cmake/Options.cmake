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
if(NOT APPLE)
  target_link_options(frimbolate_options INTERFACE LINKER:-z,relro LINKER:-z,now)
endif()

if(FRIMBOLATE_SANITIZE)
  # "undefined" does not include float-cast-overflow.
  set(sanitizers address,undefined,float-cast-overflow)
  target_compile_options(frimbolate_options INTERFACE
    -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(frimbolate_options INTERFACE -fsanitize=${sanitizers})
endif()
if(FRIMBOLATE_COVERAGE)
  target_compile_options(frimbolate_options INTERFACE --coverage -O0)
  target_link_options(frimbolate_options INTERFACE --coverage)
endif()

# frimbolate_precompile(<target> <header> ...): only in the sanitized build, where it halves the
# compile time. The ordinary build compiles without it and so finds a missing include.
function(frimbolate_precompile target)
  if(FRIMBOLATE_SANITIZE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()
# What most files of the window include.
set(FRIMBOLATE_WIDGET_HEADERS <QApplication> <QComboBox> <QDialog> <QLabel> <QLineEdit> <QPainter>
                              <QToolButton> <QVBoxLayout>)

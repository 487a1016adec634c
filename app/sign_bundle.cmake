# cmake -DBUNDLE=<.app> -DIDENTITY=<signer> -DENTITLEMENTS=<file> -P sign_bundle.cmake
#
# Signs from the inside out: the libraries, the plug-ins that load them, then the bundle, whose
# signature seals the others. Each has a call of its own: with --deep, all would get the bundle's
# entitlements.
foreach(argument IN ITEMS BUNDLE IDENTITY ENTITLEMENTS)
  if(NOT ${argument})
    message(FATAL_ERROR "-D${argument}=… is missing")
  endif()
endforeach()

set(options --force --sign ${IDENTITY})
# The hardened runtime loads libraries of the same team only. An ad hoc signature (-) has no team,
# so that the program could not load its own.
if(NOT IDENTITY STREQUAL "-")
  list(APPEND options --timestamp --options runtime)
endif()

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB libraries LIST_DIRECTORIES true
     ${BUNDLE}/Contents/Frameworks/*.framework ${BUNDLE}/Contents/Frameworks/*.dylib)
file(GLOB_RECURSE plugins ${BUNDLE}/Contents/PlugIns/*.dylib)
list(SORT libraries)
list(SORT plugins)
foreach(part IN LISTS libraries plugins)
  run(codesign ${options} ${part})
endforeach()
run(codesign ${options} --entitlements ${ENTITLEMENTS} ${BUNDLE})
foreach(part IN LISTS libraries plugins ITEMS ${BUNDLE})
  run(codesign --verify --strict --verbose=2 ${part})
endforeach()

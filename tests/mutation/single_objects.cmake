# Included by script/mutate at the start of the project: the tests are compiled in batches, which is
# faster, and the modules that it changes one source at a time, since it replaces single objects.
function(frimbolate_compile_modules_singly)
  foreach(module IN ITEMS core plist posix settings operations ui cli)
    set_target_properties(frimbolate_${module} PROPERTIES UNITY_BUILD OFF)
  endforeach()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL frimbolate_compile_modules_singly)

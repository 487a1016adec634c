# cmake -DBUNDLE=<signed .app> -DIDENTITY=<signer> -DIMAGE=<.dmg> -P make_image.cmake
#
# Makes the disk image from which a user drags the program into the Applications folder.
foreach(argument IN ITEMS BUNDLE IDENTITY IMAGE)
  if(NOT ${argument})
    message(FATAL_ERROR "-D${argument}=… is missing")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(codesign --verify --strict ${BUNDLE})
set(content ${IMAGE}.content)
file(REMOVE_RECURSE ${content} ${IMAGE})
file(MAKE_DIRECTORY ${content})
cmake_path(GET BUNDLE FILENAME name)
run(ditto ${BUNDLE} ${content}/${name}) # keeps what the signature seals
file(CREATE_LINK /Applications ${content}/Applications SYMBOLIC)
run(hdiutil create -volname Frimbolate -srcfolder ${content} -format UDZO -ov ${IMAGE})
file(REMOVE_RECURSE ${content})
if(NOT IDENTITY STREQUAL "-")
  run(codesign --force --timestamp --sign ${IDENTITY} ${IMAGE})
  run(codesign --verify --strict ${IMAGE})
endif()

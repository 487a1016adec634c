# The application bundle of macOS, with its Info.plist and its icon.
target_link_libraries(frimbolate PRIVATE frimbolate_macos)
target_sources(frimbolate PRIVATE ${FRIMBOLATE_ICNS})
set_source_files_properties(${FRIMBOLATE_ICNS} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(frimbolate PROPERTIES
  OUTPUT_NAME Frimbolate
  MACOSX_BUNDLE ON
  MACOSX_BUNDLE_INFO_PLIST ${FRIMBOLATE_INFO_PLIST})
install(TARGETS frimbolate BUNDLE DESTINATION .)

# The sandbox applies to signed programs only, and permits no library from outside the bundle. So Qt
# is copied into it first, and the bundle is signed afterwards.
set(FRIMBOLATE_SIGNER - CACHE STRING "The identity that signs the bundle; - is nobody's (ad hoc)")
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
cmake_path(GET qmake PARENT_PATH qt_tools)
add_custom_target(frimbolate_signed
  COMMAND ${qt_tools}/macdeployqt $<TARGET_BUNDLE_DIR:frimbolate>
  COMMAND ${CMAKE_COMMAND} -DBUNDLE=$<TARGET_BUNDLE_DIR:frimbolate>
          -DIDENTITY=${FRIMBOLATE_SIGNER} -DENTITLEMENTS=${FRIMBOLATE_ENTITLEMENTS}
          -P ${CMAKE_CURRENT_SOURCE_DIR}/sign_bundle.cmake
  VERBATIM)
add_dependencies(frimbolate_signed frimbolate)

add_custom_target(frimbolate_image
  COMMAND ${CMAKE_COMMAND} -DBUNDLE=$<TARGET_BUNDLE_DIR:frimbolate>
          -DIDENTITY=${FRIMBOLATE_SIGNER}
          -DIMAGE=${PROJECT_BINARY_DIR}/Frimbolate-${PROJECT_VERSION}.dmg
          -P ${CMAKE_CURRENT_SOURCE_DIR}/make_image.cmake
  VERBATIM)
add_dependencies(frimbolate_image frimbolate_signed)

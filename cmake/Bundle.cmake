# The application bundle. The build tree has the same layout as an installation.

set(bundle Nimbra.app)

# Puts a target into a folder of the bundle's "Contents".
function(place_in_bundle target folder)
  set_target_properties(${target} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${bundle}/Contents/${folder}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${bundle}/Contents/${folder})
  install(TARGETS ${target}
    RUNTIME DESTINATION ${bundle}/Contents/${folder}
    LIBRARY DESTINATION ${bundle}/Contents/${folder})
endfunction()

# Makes a copy of the application for tests, in another folder and without a module.
function(add_application_copy target folder)
  set(copied ${PROJECT_BINARY_DIR}/${folder}/${bundle}/Contents)
  add_custom_target(${target} ALL
    COMMAND ${CMAKE_COMMAND} -E copy_directory
      ${PROJECT_BINARY_DIR}/${bundle}/Contents/MacOS ${copied}/MacOS
    COMMAND ${CMAKE_COMMAND} -E copy_directory
      ${PROJECT_BINARY_DIR}/${bundle}/Contents/Resources ${copied}/Resources
    DEPENDS Nimbra)
endfunction()

function(add_bundle_resource file)
  get_filename_component(name ${file} NAME)
  configure_file(${file} ${PROJECT_BINARY_DIR}/${bundle}/Contents/Resources/${name} COPYONLY)
  install(FILES ${file} DESTINATION ${bundle}/Contents/Resources)
endfunction()

# With this file macOS recognises the folder as an application.
if(APPLE)
  configure_file(cmake/Info.plist.in ${PROJECT_BINARY_DIR}/${bundle}/Contents/Info.plist @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${bundle}/Contents/Info.plist
    DESTINATION ${bundle}/Contents)
  add_bundle_resource(resources/Nimbra.icns)
endif()

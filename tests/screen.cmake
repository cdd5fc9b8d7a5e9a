# The same tests for each module.
add_executable(screen_test screen_test.cpp)
target_link_libraries(screen_test PRIVATE
  launch_fixture quillon_platform GTest::gtest_main ${CMAKE_DL_LIBS})
set(appkit_contents ${PROJECT_BINARY_DIR}/appkit/Nimbra.app/Contents)
target_compile_definitions(screen_test PRIVATE
  UI_MODULE="$<TARGET_FILE:quillon_ui>"
  APPKIT_MODULE="${appkit_contents}/Frameworks/libquillon-ui.so"
  APPKIT_EXECUTABLE="${appkit_contents}/MacOS/Nimbra")
add_dependencies(screen_test quillon_ui)
set(toolkits gtk)
if(TARGET quillon_ui_appkit)
  list(APPEND toolkits appkit)
endif()
set(leaks ${CMAKE_CURRENT_LIST_DIR}/gnustep/lsan.supp)
foreach(toolkit IN LISTS toolkits)
  add_test(NAME Screen.${toolkit}
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-screen ${PROJECT_SOURCE_DIR}/scripts/with-peers
      $<TARGET_FILE:screen_test>)
  set_tests_properties(Screen.${toolkit} PROPERTIES TIMEOUT 120 ENVIRONMENT
    "QUILLON_TOOLKIT=${toolkit};LSAN_OPTIONS=suppressions=${leaks}")
endforeach()

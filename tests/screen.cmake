add_executable(screen_test screen_test.cpp)
target_link_libraries(screen_test PRIVATE launch_fixture ${CMAKE_DL_LIBS})
target_compile_definitions(screen_test PRIVATE UI_MODULE="$<TARGET_FILE:quillon_ui>")
add_dependencies(screen_test Nimbra quillon_ui stand_in_engine)
add_test(NAME Screen
  COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-screen ${PROJECT_SOURCE_DIR}/scripts/with-peers
    $<TARGET_FILE:screen_test>)
set_tests_properties(Screen PROPERTIES TIMEOUT 120)

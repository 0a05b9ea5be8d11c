# The tests of the host with windows, and of the runtime that links it.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets Test)
add_executable(qt_test qt/qt_test_main.cpp qt/block_font.cpp qt/box_test.cpp qt/drawing_test.cpp qt/looks_test.cpp
  qt/golden_looks_test.cpp qt/pictures_test.cpp qt/preview_test.cpp qt/qt_host_test.cpp qt/recording_test.cpp qt/script_test.cpp qt/stage_test.cpp qt/wallpaper_test.cpp qt/window_parts_test.cpp support/qt_objects.cpp
  support/qt_person.cpp)
target_compile_definitions(qt_test PRIVATE
  TESSERA_SOURCE_DIR="${CMAKE_SOURCE_DIR}" TESSERA_PARTS="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
target_link_libraries(qt_test PRIVATE tessera_qt tessera_console tessera_hosted_support tessera_options Qt6::Test GTest::gtest)
gtest_discover_tests(qt_test DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 60)

tessera_test(runtime_test
  support/process.cpp
  runtime/runtime_test.cpp
  ROOMS image)
target_compile_definitions(runtime_test PRIVATE
  TESSERA_TOOL="$<TARGET_FILE:tessera>" TESSERA_RUNTIME="$<TARGET_FILE:tessera-runtime>")
add_dependencies(runtime_test tessera tessera-runtime)

# A finished program on a virtual X server.
find_library(XCB_LIBRARY xcb REQUIRED)
tessera_test(display_test
  support/process.cpp
  support/virtual_screen.cpp
  runtime/display_test.cpp
  runtime/register_test.cpp)
target_compile_definitions(display_test PRIVATE
  TESSERA_TOOL="$<TARGET_FILE:tessera>" TESSERA_EXAMPLES="${CMAKE_SOURCE_DIR}/examples")
target_link_libraries(display_test PRIVATE ${XCB_LIBRARY})
add_dependencies(display_test tessera tessera-runtime)

# Programs over the part that reaches databases, which stands on Qt too.
tessera_programs(sql ${CMAKE_SOURCE_DIR}/tests/sql/programs ${CMAKE_SOURCE_DIR}/tests/sql/programs)

# Programs over the part that paints pages, and documents read back; a print queue on loopback.
tessera_programs(reports ${CMAKE_SOURCE_DIR}/tests/reports/programs ${CMAKE_SOURCE_DIR}/tests/reports/programs)
foreach(script documents page_files queue)
  add_test(NAME reports.${script} COMMAND ${CMAKE_SOURCE_DIR}/tests/reports/${script}.sh $<TARGET_FILE:tessera>)
  set_tests_properties(reports.${script} PROPERTIES TIMEOUT 60 SKIP_RETURN_CODE 77)
endforeach()
add_test(NAME reports.examples
  COMMAND ${CMAKE_SOURCE_DIR}/tests/reports/examples.sh $<TARGET_FILE:tessera> ${CMAKE_SOURCE_DIR}/examples)
set_tests_properties(reports.examples PROPERTIES TIMEOUT 60)

add_test(NAME sql.files_in_trouble COMMAND ${CMAKE_SOURCE_DIR}/tests/sql/trouble.sh $<TARGET_FILE:tessera>)
set_tests_properties(sql.files_in_trouble PROPERTIES TIMEOUT 60)

# The same program against each kind of server, started on loopback for the test. One that is not installed is
# told as skipped.
foreach(engine sqlite postgresql mariadb odbc)
  add_test(NAME sql.on_${engine}
    COMMAND ${CMAKE_SOURCE_DIR}/tests/sql/servers.sh $<TARGET_FILE:tessera> ${engine})
  set_tests_properties(sql.on_${engine} PROPERTIES TIMEOUT 60 SKIP_RETURN_CODE 77)
endforeach()

# Media with real windows: a sound server on loopback, packages missing one by one, pages on a virtual screen.
foreach(script windows pages)
  add_test(NAME media.${script} COMMAND ${CMAKE_SOURCE_DIR}/tests/media/${script}.sh $<TARGET_FILE:tessera>)
  set_tests_properties(media.${script} PROPERTIES TIMEOUT 240 SKIP_RETURN_CODE 77)
endforeach()

# The manual's pages are free of broken links.
add_test(NAME manual.site COMMAND ${CMAKE_SOURCE_DIR}/docs/manual/make --no-pictures --no-pdf
  ${CMAKE_RUNTIME_OUTPUT_DIRECTORY} ${CMAKE_CURRENT_BINARY_DIR}/manual)
set_tests_properties(manual.site PROPERTIES TIMEOUT 300)

add_custom_target(manual COMMAND ${CMAKE_SOURCE_DIR}/docs/manual/make ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
  ${CMAKE_BINARY_DIR}/../manual DEPENDS tessera tessera-runtime VERBATIM)

set(ui zelbox_clouddoc_ui zelplatform)

zel_test(clouddoc_layout SOURCES tst_layout.cpp LINK ${ui})
zel_test(clouddoc_page SOURCES tst_page.cpp pagefixture.h LINK ${ui} zeltest_fakes)
zel_test(clouddoc_pageoutside SOURCES tst_pageoutside.cpp pagefixture.h LINK ${ui} zeltest_fakes)

# Pictures of the page in all its states, for people; not registered as a test.
add_executable(clouddoc_pictures pictures.cpp)
target_link_libraries(clouddoc_pictures PRIVATE ${ui} zeltest_fakes Qt5::Test)
target_include_directories(clouddoc_pictures PRIVATE "${CMAKE_SOURCE_DIR}/tests")
set_target_properties(clouddoc_pictures PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")

# The tests that run on Windows, or under Wine. docs/windows.md says which don't, and why.
add_subdirectory(platform/windows)
add_subdirectory(engine/jet/windows)
add_subdirectory(import)

wrenfield_test(engine_test
  SOURCES engine/DynasetTest.cpp engine/GrammarTest.cpp engine/HostileFileTest.cpp engine/HostileSchemaTest.cpp
          engine/InsertBatchTest.cpp engine/NamesTest.cpp engine/ValueTest.cpp
  USES engine platform)

wrenfield_test(jet_index_test
  SOURCES engine/jet/ColumnKeyTest.cpp engine/jet/HostileIndexTest.cpp engine/jet/IndexPageTest.cpp
          engine/jet/IndexRulesTest.cpp engine/jet/IndexTreeTest.cpp engine/jet/TableIndexTest.cpp
          engine/jet/TextKeyTest.cpp engine/jet/TreeCheck.cpp
  USES engine platform)

wrenfield_test(database_test
  SOURCES database/DataReadTest.cpp database/LookupDateTest.cpp database/RecordAccessTest.cpp
          database/UpdateRecordTest.cpp
  USES database engine platform)

wrenfield_test(records_test
  SOURCES records/CollectionsTest.cpp records/EntryRulesTest.cpp records/RentSplitTest.cpp
          records/SetFieldDefaultsTest.cpp
  USES records database engine platform)
target_include_directories(records_test PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/records)

wrenfield_test(records_database_test
  SOURCES records/InsertRecordsTest.cpp
  USES tools records database engine platform)
target_include_directories(records_database_test PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/records)

wrenfield_test(tools_test
  SOURCES tools/AcceptedPortfolioTest.cpp tools/CollectionLimitTest.cpp tools/OptionsTest.cpp
          tools/PortfolioFaultTest.cpp tools/RefusedPortfolioTest.cpp
  USES tools)

# Programs of this system stand beside those for Windows and run them, so that scripts need not know.
foreach(name IN ITEMS wrenfield-import hearthbook-create-database write-rows read-rows)
  configure_file(support/windows/under-wine.in ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${name} @ONLY
                 FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endforeach()
add_subdirectory(model)

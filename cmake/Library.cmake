# The library: the sources are compiled once, for liboProductTree.so and for the tests of what it hides.

set(productTreeSources
    resources/ProductTreeResources.cpp

    columns/ColumnInfo.cpp
    columns/DocumentColumnsInfo.cpp
    columns/headers/CountHeader.cpp
    columns/headers/DesignationHeader.cpp
    columns/headers/DialogHeaders.cpp
    columns/headers/PlainHeaders.cpp
    columns/headers/PopupHeaders.cpp
    columns/headers/ProductTreeHeaderImpl.cpp
    columns/headers/RoughnessHeaders.cpp

    sorting/PartRuns.cpp
    sorting/SortSections.cpp
    sorting/StyleBasedProductTreeSorter.cpp

    cells/CellArena.cpp
    cells/CellMenus.cpp
    cells/CountCells.cpp
    cells/GroupCellImpl.cpp
    cells/LinkCommands.cpp
    cells/MarkingCells.cpp
    cells/MaterialCells.cpp
    cells/MaterialGroupCells.cpp
    cells/NameCells.cpp
    cells/NumberAwareLess.cpp
    cells/PlainCells.cpp
    cells/PopupCells.cpp
    cells/ProductTreeCellImpl.cpp
    cells/RoughnessCells.cpp
    cells/RowCommands.cpp
    cells/SectionAndPositionCells.cpp
    cells/TypedGroupCells.cpp
    cells/UserPopups.cpp

    items/BilletItemImpl.cpp
    items/ColumnTable.cpp
    items/DeleteQuestion.cpp
    items/InfObjectItemImpl.cpp
    items/ItemAttributes.cpp
    items/ItemIcons.cpp
    items/ProductTreeItemData.cpp
    items/ProductTreeItemId.cpp
    items/ProductTreeItemImpl.cpp
    items/GroupItemImpl.cpp
    items/SectionItemImpl.cpp
    items/SimpleCellContextMenu.cpp
    items/SubTreeItemImpl.cpp

    control/EmbodimentFilter.cpp
    control/GrProductTreeWrapper.cpp
    control/ModuleEntry.cpp
    control/ProductPartDocsList.cpp
    control/ProductTreeCtrl.cpp
    control/ProductTreeCtrlColumns.cpp
    control/ProductTreeCtrlCommands.cpp
    control/ProductTreeCtrlDocuments.cpp
    control/ProductTreeCtrlEdits.cpp
    control/ProductTreeCtrlEmbodiments.cpp
    control/ProductTreeCtrlMenus.cpp
    control/ProductTreeCtrlRows.cpp
    control/ProductTreeCtrlSelection.cpp
    control/ProductTreeEmbItemsStates.cpp
    control/ProductTreeDocumentPreviewBox.cpp
    control/SyncGuard.cpp
)

add_library(productTreeObjects OBJECT ${productTreeSources})
target_link_libraries(productTreeObjects PUBLIC productTreeHostHeaders oHost PRIVATE productTreeRules)
set_target_properties(productTreeObjects PROPERTIES
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

# Templates of the standard library ignore hidden visibility: the version script keeps them in.
set(productTreeExports ${PROJECT_SOURCE_DIR}/cmake/exports.map)
add_library(oProductTree SHARED $<TARGET_OBJECTS:productTreeObjects>)
add_library(oProductTree::oProductTree ALIAS oProductTree)
target_link_libraries(oProductTree PUBLIC productTreeHostHeaders oHost PRIVATE productTreeRules)
target_link_options(oProductTree PRIVATE
    -Wl,--version-script=${productTreeExports} -Wl,--no-undefined)
# The library enters its tree in the host's registry while it is loaded: who links it needs it even
# where nothing of it is called by name.
target_link_options(oProductTree INTERFACE -Wl,--no-as-needed)
set_target_properties(oProductTree PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    LINK_DEPENDS ${productTreeExports}
    INSTALL_RPATH $ORIGIN)

# What a host sees: the contract and the exported headers.
set(productTreePublicHeaders
    columns/ColumnInfo.h
    control/GrProductTreeWrapper.h
    control/IfProductTreeCtrl.h
    items/ProductTreeItemData.h
    resources/Export.h
)
foreach(header ${productTreePublicHeaders})
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/oProductTree/${folder})
endforeach()
install(DIRECTORY host/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/oProductTree/host
    FILES_MATCHING PATTERN "*.h")

include(CMakePackageConfigHelpers)
install(TARGETS oProductTree oHost productTreeHostHeaders EXPORT oProductTreeTargets)
install(EXPORT oProductTreeTargets NAMESPACE oProductTree::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/oProductTree)
configure_package_config_file(cmake/oProductTreeConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/oProductTreeConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/oProductTree)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/oProductTreeConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/oProductTreeConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/oProductTreeConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/oProductTree)

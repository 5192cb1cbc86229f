# What a host links, in the build tree (add_subdirectory) and from an installed prefix (find_package): the
# component, its QML plugin (linking it registers the QML types) and the shared logging library.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

add_library(QuorvaneSdkImageHost INTERFACE)
add_library(Quorvane::SdkImage ALIAS QuorvaneSdkImageHost)
set_target_properties(QuorvaneSdkImageHost PROPERTIES EXPORT_NAME SdkImage)
target_link_libraries(QuorvaneSdkImageHost INTERFACE QuorvaneSdkImage QuorvaneSdkImageplugin)
target_include_directories(QuorvaneSdkImageHost INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/Editor>
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/Error>
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src/Localization>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/QuorvaneSdkImage>)

# Everything a host's code may include; each compiles as C++17.
set(QUORVANE_PUBLIC_HEADERS
  ${PROJECT_SOURCE_DIR}/src/Editor/QuorvaneSdkImageEditorPresenter.h
  ${PROJECT_SOURCE_DIR}/src/Editor/QuorvaneSdkImageEditorPreset.h
  ${PROJECT_SOURCE_DIR}/src/Editor/QuorvaneSdkImageEditorResult.h
  ${PROJECT_SOURCE_DIR}/src/Editor/QuorvaneSdkImageOutputFormat.h
  ${PROJECT_SOURCE_DIR}/src/Editor/QuorvaneSdkImageMetadataPolicy.h
  ${PROJECT_SOURCE_DIR}/src/Error/QuorvaneSdkImageError.h
  ${PROJECT_SOURCE_DIR}/src/Localization/QuorvaneSdkImageTranslations.h
  ${PROJECT_SOURCE_DIR}/src/SharedQuorvaneSdk/SharedQuorvaneSdkCommon.h
  ${PROJECT_SOURCE_DIR}/src/SharedQuorvaneSdk/SharedQuorvaneSdkExport.h
  ${PROJECT_SOURCE_DIR}/src/SharedQuorvaneSdk/SharedQuorvaneSdkLog.h
)

# Called once src/ is read, when every target the QML, shader and translation steps made is known. A host
# that builds the component in its own tree installs nothing of ours unless it asks.
function(quorvane_install_package)
  if(NOT QUORVANE_INSTALL)
    return()
  endif()
  set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/QuorvaneSdkImage)
  get_property(modules GLOBAL PROPERTY QUORVANE_MODULES)
  install(TARGETS QuorvaneSdkImageHost QuorvaneSdkImage QuorvaneSdkImageplugin QuorvaneShared ${modules}
                  ${quorvane_qml_targets} ${quorvane_shader_targets} ${QUORVANE_TRANSLATION_TARGETS}
    EXPORT QuorvaneSdkImageTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR}/QuorvaneSdkImage/objects)
  install(FILES ${QUORVANE_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QuorvaneSdkImage)
  # For a host's QML tooling only (qmllint, the QML compiler, an IDE): at run time the module comes from the
  # component's resources.
  install(DIRECTORY ${PROJECT_BINARY_DIR}/qml/Quorvane/SdkImage/ DESTINATION ${CMAKE_INSTALL_LIBDIR}/qml/Quorvane/SdkImage
          FILES_MATCHING PATTERN "qmldir" PATTERN "*.qmltypes" PATTERN "*.qml")
  install(EXPORT QuorvaneSdkImageTargets NAMESPACE Quorvane:: DESTINATION ${destination})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QuorvaneSdkImageConfig.cmake.in
    ${PROJECT_BINARY_DIR}/QuorvaneSdkImageConfig.cmake INSTALL_DESTINATION ${destination}
    PATH_VARS CMAKE_INSTALL_LIBDIR)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuorvaneSdkImageConfigVersion.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/QuorvaneSdkImageConfig.cmake
                ${PROJECT_BINARY_DIR}/QuorvaneSdkImageConfigVersion.cmake
          DESTINATION ${destination})
endfunction()

# Headers, the library, a CMake package (find_package(Vesk) -> vesk::vesk) and vesk.pc.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/vesk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS vesk EXPORT VeskTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT VeskTargets NAMESPACE vesk:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vesk)

configure_package_config_file(cmake/VeskConfig.cmake.in ${PROJECT_BINARY_DIR}/VeskConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vesk)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VeskConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VeskConfig.cmake ${PROJECT_BINARY_DIR}/VeskConfigVersion.cmake
  ${PROJECT_SOURCE_DIR}/cmake/VeskResources.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Vesk)

# vesk.pc finds its prefix from its own folder, so the installed tree can move.
file(RELATIVE_PATH VESK_PC_TO_PREFIX /root/${CMAKE_INSTALL_LIBDIR}/pkgconfig /root)
configure_file(cmake/vesk.pc.in ${PROJECT_BINARY_DIR}/vesk.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vesk.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

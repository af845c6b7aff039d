# Finds Qwt built for Qt 5 and offers it as the target Qwt::Qwt.

find_path(QWT_INCLUDE_DIR qwt_wheel.h PATH_SUFFIXES qwt qwt-qt5 qt5/qwt)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt)
if(QWT_INCLUDE_DIR AND EXISTS ${QWT_INCLUDE_DIR}/qwt_global.h)
  file(STRINGS ${QWT_INCLUDE_DIR}/qwt_global.h qwt_version_line REGEX "define +QWT_VERSION_STR ")
  string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" QWT_VERSION "${qwt_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR QWT_VERSION)
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
  add_library(Qwt::Qwt UNKNOWN IMPORTED)
  set_target_properties(Qwt::Qwt PROPERTIES IMPORTED_LOCATION ${QWT_LIBRARY}
                        INTERFACE_INCLUDE_DIRECTORIES ${QWT_INCLUDE_DIR})
endif()

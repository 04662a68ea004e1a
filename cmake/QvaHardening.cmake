# How the binaries that are shipped differ from those that stay at a desk: hardened, and the same bytes wherever
# they are built.

if(PROJECT_IS_TOP_LEVEL AND CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$")
  set(qva_harden_default ON)
else()
  set(qva_harden_default OFF)
endif()
# _FORTIFY_SOURCE takes an optimised build; the sanitizers do not go with it.
option(QVA_HARDEN "Harden the libraries and the tool, and keep folder names out of them" ${qva_harden_default})

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# In the build folder libraries are found by relative paths; an absolute one would leave its length in the binary.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

add_library(qva_shipped INTERFACE)
if(QVA_HARDEN)
  target_compile_options(
    qva_shipped
    INTERFACE -fstack-protector-strong
              -fstack-clash-protection
              -fcf-protection
              -U_FORTIFY_SOURCE
              -D_FORTIFY_SOURCE=2
              -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
              -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  target_link_options(qva_shipped INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
endif()

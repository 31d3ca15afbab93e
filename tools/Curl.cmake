# libcurl with what publishing needs of it and no more, from Debian's sources: FTP, FTP over Windows' own TLS, SFTP by
# libssh2. libssh2 takes its cryptography from mbedTLS, since its key exchange by that of Windows does not end.
enable_language(C)
set(ZERVO_SOURCES ${CMAKE_SOURCE_DIR}/build/sources CACHE PATH "Where tools/get-source has unpacked sources")
foreach(name curl libssh2 mbedtls)
  if(NOT EXISTS ${ZERVO_SOURCES}/${name}.version)
    message(FATAL_ERROR "no sources of ${name} in ${ZERVO_SOURCES}: run tools/setup")
  endif()
  file(STRINGS ${ZERVO_SOURCES}/${name}.version ${name}_version LIMIT_COUNT 1)
  message(STATUS "${name} ${${name}_version}")
endforeach()

# Their licences with the versions, for the about box and the downloads.
file(READ ${ZERVO_SOURCES}/curl/COPYING curl_licence)
file(READ ${ZERVO_SOURCES}/libssh2/COPYING libssh2_licence)
file(READ ${ZERVO_SOURCES}/mbedtls/LICENSE mbedtls_licence)
file(CONFIGURE OUTPUT licences/LICENSE-curl.txt @ONLY NEWLINE_STYLE LF CONTENT
     "libcurl, libssh2 and mbedTLS, by which pages are published, from Debian's packages curl @curl_version@, libssh2\n@libssh2_version@ and mbedtls @mbedtls_version@\n\n== curl\n\n@curl_licence@\n\n== libssh2\n\n@libssh2_licence@\n\n== mbedTLS\n\n@mbedtls_licence@\n")

# Not our sources: their warnings are their authors'.
set(foreign -w $<$<CONFIG:Release>:-Os> -fno-asynchronous-unwind-tables -ffunction-sections -fdata-sections -ffile-prefix-map=${ZERVO_SOURCES}=.)

file(GLOB sources ${ZERVO_SOURCES}/mbedtls/library/*.c)
list(FILTER sources EXCLUDE REGEX "/(ssl_|psa_|x509|mps_|net_sockets|certs|debug|havege)[a-z0-9_]*\\.c$")
add_library(zervo_mbedtls STATIC ${sources})
# Several connections draw from one source of random numbers.
target_compile_definitions(zervo_mbedtls PUBLIC MBEDTLS_THREADING_C MBEDTLS_THREADING_PTHREAD)
target_include_directories(zervo_mbedtls SYSTEM PUBLIC ${ZERVO_SOURCES}/mbedtls/include)
target_compile_options(zervo_mbedtls PRIVATE ${foreign})
# Keys are read by UTF-8 paths; platform/curl/key_file.cpp.
target_compile_definitions(zervo_mbedtls PRIVATE fopen=zervo_open_key)
target_link_libraries(zervo_mbedtls PUBLIC bcrypt advapi32)

file(GLOB sources ${ZERVO_SOURCES}/libssh2/src/*.c)
list(FILTER sources EXCLUDE REGEX "/(openssl|wincng|libgcrypt)\\.c$")
add_library(zervo_libssh2 STATIC ${sources})
target_compile_definitions(zervo_libssh2 PRIVATE LIBSSH2_MBEDTLS LIBSSH2_WIN32 fopen=zervo_open_key)
target_include_directories(zervo_libssh2 SYSTEM PUBLIC ${ZERVO_SOURCES}/libssh2/include)
target_include_directories(zervo_libssh2 SYSTEM PRIVATE ${ZERVO_SOURCES}/libssh2/win32 ${ZERVO_SOURCES}/libssh2/src)
target_compile_options(zervo_libssh2 PRIVATE ${foreign})
target_link_libraries(zervo_libssh2 PUBLIC zervo_mbedtls ws2_32 user32)

file(GLOB sources ${ZERVO_SOURCES}/curl/lib/*.c ${ZERVO_SOURCES}/curl/lib/v*/*.c)
# Debian's patch of 2023 counts the headers of all protocols by a function that is part of HTTP; single lines of servers
# are limited elsewhere.
set(counting ${CMAKE_BINARY_DIR}/curl/header_size.c)
file(CONFIGURE OUTPUT ${counting} CONTENT
     "#include <stdbool.h>\n#include <stddef.h>\nint Curl_bump_headersize(void *d, size_t n, bool c) { (void)d; (void)n; (void)c; return 0; }\n")
add_library(zervo_libcurl STATIC ${sources} ${counting})
set(disabled "")
foreach(name ALTSVC AWS COOKIES CRYPTO_AUTH DICT DOH FILE FORM_API GETOPTIONS GOPHER HSTS HTTP IMAP LDAP LDAPS LIBCURL_OPTION MIME
             MQTT NETRC NTLM OPENSSL_AUTO_LOAD_CONFIG POP3 PROXY RTSP SMB SMTP TELNET TFTP)
  list(APPEND disabled CURL_DISABLE_${name})
endforeach()
target_compile_definitions(zervo_libcurl PUBLIC CURL_STATICLIB
                           PRIVATE BUILDING_LIBCURL ENABLE_IPV6 USE_LIBSSH2 USE_SCHANNEL USE_WINDOWS_SSPI _WIN32_WINNT=0x0A00 ${disabled})
target_include_directories(zervo_libcurl SYSTEM PUBLIC ${ZERVO_SOURCES}/curl/include)
target_include_directories(zervo_libcurl SYSTEM PRIVATE ${ZERVO_SOURCES}/curl/lib)
target_compile_options(zervo_libcurl PRIVATE ${foreign})
target_link_libraries(zervo_libcurl PUBLIC zervo_libssh2 ws2_32 crypt32 secur32 bcrypt advapi32)
add_library(CURL::libcurl ALIAS zervo_libcurl)

# What the product says of itself. Set them with -D at configure time; they are compiled in.

set(CORVANE_VERSION "1.0.0" CACHE STRING
  "Three numbers and, optionally, a stage (d, a, b or f) with a build number, as in 1.2.0b4")
set(CORVANE_UPDATE_URL "http://updates.corvane.invalid/account/downloads/UpdateInformation.json" CACHE STRING
  "Where the signed update document lies")
set(CORVANE_UPDATE_PUBLIC_KEY "" CACHE STRING
  "The key that update documents are signed with: an RSA SubjectPublicKeyInfo, DER, in hexadecimal")
set(CORVANE_COPYRIGHT "Copyright © 2026 The Corvane makers" CACHE STRING
  "The copyright line of the main window")

if(NOT CORVANE_VERSION MATCHES "^([0-9]+)\\.([0-9]+)\\.([0-9]+)([dabf][0-9]+)?$")
  message(FATAL_ERROR "CORVANE_VERSION is \"${CORVANE_VERSION}\"; it must be three numbers, as in 1.0.0, "
    "and may end with a stage and a build number, as in 1.0.0b4")
endif()
set(CORVANE_VERSION_MAJOR "${CMAKE_MATCH_1}")
set(CORVANE_VERSION_MINOR "${CMAKE_MATCH_2}")
set(CORVANE_VERSION_BUG "${CMAKE_MATCH_3}")

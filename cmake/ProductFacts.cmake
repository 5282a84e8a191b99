# The facts of the product, which are compiled in. Set them with -D at configure time.

set(CORVANE_VERSION "1.0.0" CACHE STRING
  "Three numbers and, optionally, a stage (d, a, b or f) with a build number, as in 1.2.0b4")
set(CORVANE_UPDATE_URL "http://updates.corvane.invalid/account/downloads/UpdateInformation.json" CACHE STRING
  "The address of the signed update document")
# Nobody has the private half of this key: until it is replaced, no update is accepted as genuine.
string(CONCAT key_without_owner
  "30820120300D06092A864886F70D01010105000382010D00308201080282010100F0EF397B1B842242073D06F244E8D971A62F95BA00"
  "F514789818F2DF76B985C5675F742AB0D79F56166B2E4CAA67EC5C30B350331367D6E0BB240C0116E4647914E4AD313A346D83480B08"
  "E8E8771A243FC9D382AAD0E98F30EE071885F13AB9243C261D62D00D254A62226DCB8E022A945F61BCFC05CE21D4165B9BB824416BCD"
  "10DEE0C1AD722DE93101CBA2713EA9309A4CECA2C72C685E4DE8CA7808EF3CE99886831F1F692199880B9FE13987AE61A81A70DB531B"
  "FED2551E6196CC594EADC30EC62A0135FB7C79A2BF55BC13BE2CF716BDB486677E6DE395B2E4F3A304164C55E73B743DB6868A83D6AD"
  "BAB9D757954ED0CB101B306ED9897862A79903020103"
)
set(CORVANE_UPDATE_PUBLIC_KEY "${key_without_owner}" CACHE STRING
  "The key that update documents are signed with: an RSA SubjectPublicKeyInfo, DER, in upper-case hexadecimal")
set(CORVANE_COPYRIGHT "Copyright © 2026 The Corvane makers" CACHE STRING
  "The copyright line of the main window")
set(CORVANE_HOME_URL "https://corvane.invalid/" CACHE STRING
  "The product's page, with a slash at the end; pictures/ below it has the pictures of docs/pictures")
set(CORVANE_CONTACT "The Corvane makers <makers@corvane.invalid>" CACHE STRING
  "The maintainer of packages: a name and an e-mail address")

if(NOT CORVANE_VERSION MATCHES "^(0|[1-9][0-9]*)\\.(0|[1-9][0-9]*)\\.(0|[1-9][0-9]*)(([dabf])(0|[1-9][0-9]*))?$")
  message(FATAL_ERROR "CORVANE_VERSION is \"${CORVANE_VERSION}\"; it must be three numbers, as in 1.0.0, "
    "and may end with a stage and a build number, as in 1.0.0b4")
endif()
set(CORVANE_VERSION_MAJOR "${CMAKE_MATCH_1}")
set(CORVANE_VERSION_MINOR "${CMAKE_MATCH_2}")
set(CORVANE_VERSION_BUG "${CMAKE_MATCH_3}")
set(CORVANE_VERSION_STAGE Final)
set(CORVANE_VERSION_BUILD 0)
if(CMAKE_MATCH_4)
  set(stage_d Development)
  set(stage_a Alpha)
  set(stage_b Beta)
  set(stage_f Final)
  set(CORVANE_VERSION_STAGE "${stage_${CMAKE_MATCH_5}}")
  set(CORVANE_VERSION_BUILD "${CMAKE_MATCH_6}")
endif()

if(NOT CORVANE_UPDATE_URL MATCHES "^https?://[^/ ]+/")
  message(FATAL_ERROR "CORVANE_UPDATE_URL is \"${CORVANE_UPDATE_URL}\"; it must be an http or https address")
endif()
if(NOT CORVANE_UPDATE_PUBLIC_KEY MATCHES "^([0-9A-F][0-9A-F])+$")
  message(FATAL_ERROR "CORVANE_UPDATE_PUBLIC_KEY is not upper-case hexadecimal text")
endif()
if(NOT CORVANE_HOME_URL MATCHES "^https?://[^/ ]+/([^ ]*/)?$")
  message(FATAL_ERROR "CORVANE_HOME_URL is \"${CORVANE_HOME_URL}\"; it must be an http or https address with / at its end")
endif()
if(NOT CORVANE_CONTACT MATCHES "^[^<>@]+ <[^<>@ ]+@[^<>@ ]+>$")
  message(FATAL_ERROR "CORVANE_CONTACT is \"${CORVANE_CONTACT}\"; it must be like Name <name@example.org>")
endif()

# Opening side: text, findings, documents, inspection.
find_package(simdjson REQUIRED)
target_sources(
  qva_toolkit
  PRIVATE src/finding.cpp
          src/jsonWriter.cpp
          src/textEscape.cpp
          src/document.cpp
          src/documentShape.cpp
          src/documentTransform.cpp
          src/inputFile.cpp
          src/inspection.cpp
          src/inspectionJson.cpp
          src/inspectionText.cpp
          src/jsonFault.cpp
          src/jsonLocator.cpp
          src/jsonNumber.cpp
          src/jsonParts.cpp
          src/jsonReader.cpp
          src/legacyJson.cpp
          src/legacyNames.cpp
          src/passedOver.cpp
          src/readAudit.cpp
          src/readerMessages.cpp
          src/readRules.cpp
          src/transformWords.cpp
          src/utf8.cpp
          src/variantJson.cpp)
target_link_libraries(qva_toolkit PRIVATE simdjson::simdjson)

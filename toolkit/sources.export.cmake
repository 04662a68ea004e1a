# Migration, pages and output files.
target_sources(
  qva_toolkit
  PRIVATE src/annotationPairs.cpp
          src/base64.cpp
          src/cadJson.cpp
          src/contentFindings.cpp
          src/fontFamily.cpp
          src/imageFormat.cpp
          src/itemExtent.cpp
          src/leaderFindings.cpp
          src/legacyFindings.cpp
          src/markup.cpp
          src/migratedJson.cpp
          src/migrationSession.cpp
          src/openBeneath.cpp
          src/outputNames.cpp
          src/outputSet.cpp
          src/pageMeasure.cpp
          src/pathData.cpp
          src/rasterFolder.cpp
          src/svgItems.cpp
          src/svgNumber.cpp
          src/svgPage.cpp)

# Object streams: opening, encoding, dumping.
target_sources(
  qva_toolkit
  PRIVATE src/annotationRecord.cpp
          src/librarySession.cpp
          src/streamDocument.cpp
          src/streamEncoder.cpp
          src/streamLosses.cpp
          src/variantMapWriter.cpp)

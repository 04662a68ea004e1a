# Object streams: opening, encoding, dumping.
target_sources(
  qva_toolkit
  PRIVATE src/annotationRecord.cpp
          src/fieldCursor.cpp
          src/librarySession.cpp
          src/recordWalk.cpp
          src/streamDocument.cpp
          src/streamDump.cpp
          src/streamEncoder.cpp
          src/streamLosses.cpp
          src/variantMapWriter.cpp
          src/variantWalk.cpp)

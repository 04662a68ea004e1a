#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "annotationLegacy/export.h"
#include "annotationLegacy/modelAllocator.h"
#include "annotationLegacy/platform.h"
#include "annotationLegacy/qvAnnotationInterface.h"

namespace qvLegacy {

/// Legacy annotation that carries text: lines of runs, with default properties that a run may override.
class QVA_EXPORT qvAnnotationText : public qvAnnotationInterface {
 public:
  /// Font, height and style of a text.
  struct QVA_EXPORT TextProperties {
    /// Bits of `m_styleFlags`; the other bits are carried along untouched.
    enum StyleFlag : std::uint16_t { Bold = 1, Italic = 2 };

    TextProperties();  ///< Arial, height 1 em, no style flags
    /// `height` in ems; see `quantizeHeight`. No style flags.
    TextProperties(std::string const& font, float height);

    /// Hundredths of an em (3.175 mm) that stand for `height`: held between 0 and 655.35, times 100 in single
    /// precision, cut toward zero. NaN gives 0.
    static std::uint16_t quantizeHeight(float height);

    /// Reads one record. Failures go to the stream's error state. A name that the stream cuts short has its
    /// announced length and, where nothing was read, the characters of the name before.
    void load(qv::qvBaseStream& stream);
    /// Reads the keys that are present; an absent height is quantised anew.
    void loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map, qv::qvStreamVersion const& version);

    std::string m_fontName = "Arial";  ///< name of the font family
    std::uint16_t m_height = 100;      ///< hundredths of an em of 3.175 mm
    std::uint16_t m_styleFlags = 0;    ///< bits of `StyleFlag`
  };

  /// A run of text on a line.
  class QVA_EXPORT TextSegment {
   public:
    /// How the run sits on the line. The numbers are persisted.
    enum SegmentType : std::uint8_t { Normal = 0, Subscript = 1, Superscript = 2 };

    TextSegment();                                           ///< without text and properties
    TextSegment(char const* text, SegmentType type);         ///< as `setText(text, 0)`
    TextSegment(std::string const& text, SegmentType type);  ///< as `setText(text)`
    /// The copy's text ends at the source's first zero character.
    TextSegment(TextSegment const& other);
    /// Copies type, text and properties; the text ends as in a copy.
    TextSegment& operator=(TextSegment const& other);
    ~TextSegment();

    /// Keeps the first min(length, 65535) characters of `text`; a length of 0 means up to the terminating
    /// zero. Null or no characters leave the run without text. `text` may be the run's own.
    void setText(char const* text, unsigned long length);
    /// As `setText(data, size)`: an empty string leaves the run without text.
    void setText(std::string const& text);
    /// The zero-terminated text, never null.
    char const* getText() const;

    /// Gives the run properties of its own, by assignment when it has some already.
    void setTextProperties(TextProperties const& properties);
    /// From here on the annotation's default properties apply.
    void clearTextProperties();

    /// Height of a run of this type relative to its properties: 1 for `Normal`, 0.63 for every other value.
    static float GetFontScaleFactor(SegmentType type);

    /// Reads one record. Failures go to the stream's error state.
    void load(qv::qvBaseStream& stream);

    /// Frees a text array.
    struct TextDeleter {
      /// Null is allowed.
      void operator()(char* text) const noexcept { impl::freeModelMemory(text); }
    };

    std::unique_ptr<char[], TextDeleter> m_text;       ///< zero-terminated; null when the run is empty
    std::unique_ptr<TextProperties> m_textProperties;  ///< null: the annotation's defaults apply
    std::uint16_t m_length = 0;                        ///< characters in `m_text` before the terminating zero
    SegmentType m_type = Normal;                       ///< other values are kept as read

   private:
    QVA_HIDDEN void resizeText(std::uint16_t length);
  };

  /// Runs of one line, from left to right.
  using Line = std::list<TextSegment, impl::ModelAllocator<TextSegment>>;
  /// Lines from top to bottom.
  using LineList = std::list<Line, impl::ModelAllocator<Line>>;

  qvAnnotationText();  ///< no lines
  /// Default-constructs, then assigns.
  qvAnnotationText(qvAnnotationText const& other);
  /// Copies what annotations share, then default properties and lines.
  qvAnnotationText& operator=(qvAnnotationText const& other);
  ~qvAnnotationText() override;

  /// Reads one text record. Failures go to the stream's error state.
  void load(qv::qvBaseStream& stream) override;
  /// Reads the shared keys, then properties and lines or text; messages and result as in the base.
  bool loadFromVariant(qv::qvVariant::qvVariantMapImpl const& map, qv::qvStreamVersion const& version,
                       std::vector<std::string>& errors) override;
  /// Reads the record that streams before 6.15 hold.
  void loadPrior_6_15(qv::qvBaseStream& stream);

  /// Replaces all lines by plain text, split at CR LF, CR and LF; the default properties stay. n line breaks
  /// give n + 1 lines of one run each.
  void setText(std::string const& text);
  /// Writes the runs' texts into `out`, lines separated by LF. A run's text ends at its first zero character.
  void toString(std::string& out) const;
  /// Removes empty runs from the ends of the lines and empty lines from the ends of the text.
  void trim(bool leading, bool trailing);

  TextProperties m_defaultTextProperties;  ///< of runs that have none of their own
  LineList m_lines;                        ///< empty by default
};

}  // namespace qvLegacy

#include "work/warmText.h"

#include <array>

namespace qvToolkit {

namespace {

constexpr char const* Letters = "0123456789 ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz .,:-+()/|";
/// Of dimensions, of tolerances of form and place, of holes, and of modifiers.
constexpr char const* Signs = "°±×−⌀∠◺○◎↗⌰⟂∥⌒⌓⌖⌭⏤⏥↧⌴⌵ⓁⓂⓅⓊ";

constexpr std::array<char const*, 3> Styles = {"", R"(,"bold":true)", R"(,"italic":true)"};

}  // namespace

std::string makeWarmText() {
  std::string lines = std::string(R"([{"text":")") + Signs + R"("}])";
  for (char const* const style : Styles)
    lines += std::string(R"(,[{"text":")") + Letters + '"' + style + "}]";
  return R"([{"ver":"6.27","origin":[0,0,0],"normal":[0,0,1],"axis":[1,0,0],"annotations":[{"type":"text",)"
         R"("position":[0,0,0],"defaulttextprop":{"font":"Arial","heightem":1},"lines":[)" +
         lines + "]}]}]";
}

}  // namespace qvToolkit

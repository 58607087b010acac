#include "turns.h"
#include "utils/xml/xml.h"

#include <tinyxml2.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

// A document read into a tree from its file, and the tree's end, against TinyXML-2. The document
// holds a piece as many times over as its size takes.

namespace vask {
namespace {

constexpr double kGoal = 1.25;

// Short names, short values, a shipped file.
std::string SpritePiece() {
  std::ifstream file(BRUMBLE_RUNTIME_FOLDER "/data/gfx/monster.xml");
  return {std::istreambuf_iterator<char>(file), {}};
}

// Nothing that fits into a small string, texts over several lines, entities.
std::string TextPiece() {
  return "<ConversationParagraph speakersName=\"the monster in the pit\">\n"
         "  Ten kittens drop into a pit. You are the monster, and you &amp; the kittens play\n"
         "  until the last of them is bald, &quot;served&quot; through the oven door, or burnt.\n"
         "</ConversationParagraph>\n";
}

void WriteDocument(const std::filesystem::path& path, const std::string& piece, std::int64_t size) {
  std::ofstream file(path);
  file << "<Document>\n";
  for (std::int64_t written = 0; written < size; written += std::ssize(piece)) {
    file << piece;
  }
  file << "</Document>\n";
}

void BM_Document(benchmark::State& state, std::string (*piece)()) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "xml_bench.xml";
  WriteDocument(path, piece(), state.range(0));
  const auto ours = [&] { benchmark::DoNotOptimize(ReadXmlFile(path)); };
  const auto peer = [&] {
    tinyxml2::XMLDocument document;
    benchmark::DoNotOptimize(document.LoadFile(path.c_str()));
  };
  MeasureInTurns(state, kGoal, ours, peer);
  std::filesystem::remove(path);
}

void Sizes(benchmark::internal::Benchmark* bench) {
  for (const int size : {20'000, 200'000, 2'000'000, 20'000'000}) {
    bench->Arg(size);
  }
  bench->UseManualTime()->Unit(benchmark::kMicrosecond);
}
BENCHMARK_CAPTURE(BM_Document, sprites, &SpritePiece)->Apply(&Sizes);
BENCHMARK_CAPTURE(BM_Document, texts, &TextPiece)->Apply(&Sizes);

}  // namespace
}  // namespace vask

#include "content.h"

namespace marrowfen {

Content read_content(const std::filesystem::path& folder, const std::filesystem::path& drawings, Faults& faults) {
    constexpr int kGroupsOfStage1 = 7;
    constexpr int kGroupsOfStage2 = 9;
    Content content;
    content.tables.push_back(read_games(folder, drawings, content.looks, faults));
    content.tables.push_back(read_words(folder / "words-keystage1.tsv", "Words_Keystage1", kGroupsOfStage1, faults));
    content.tables.push_back(read_words(folder / "words-keystage2.tsv", "Words_Keystage2", kGroupsOfStage2, faults));
    content.tables.push_back(read_sentences(folder / "sentences-keystage1.tsv", "Sentences_Keystage1", faults));
    content.tables.push_back(read_sentences(folder / "sentences-keystage2.tsv", "Sentences_Keystage2", faults));
    return content;
}

}  // namespace marrowfen

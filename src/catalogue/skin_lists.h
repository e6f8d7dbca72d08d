// The skins that fit a model, and the skins of hands, from the skins folders and
// from the archives. Names and requests are game texts.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/folders.h"
#include "foundation/list.h"
#include "system/path.h"

namespace marlowick {

// A skin that lies in an archive.
struct FarSkinEntry {
    Path FarFile;
    std::int32_t FileIndex = 0;  // the entry's number in that archive, from 1
    std::string FileName;        // its last component, upper case, with extension
};

// What a skin is looked for by: the model's name, the request to the skin chooser, and whether
// it is a pet's, whose skins have no tone.
struct SkinQuery {
    std::string_view model;
    std::string_view skinData;
    bool pet = false;
};

// A bitmap that a mask found: its folder and its bare name.
struct SkinCandidate {
    SkinFolder folder = SkinFolder::Game;
    std::string name;
};

// The bitmaps that a model's skins, and hands, are to be found among, in the order of the search.
// Nothing is tested for duplicates.
std::vector<SkinCandidate> skinCandidates(const SkinQuery& query);
std::vector<SkinCandidate> handCandidates();

// Tries a bitmap: false if it can't be loaded.
using PictureTest = std::function<bool(const Path&)>;

// Tries each candidate once and appends it to the skins, or its bare name to badFiles if it can't
// be loaded. Raises 6 past 32767 skins.
void sortOutFiles(const std::vector<SkinCandidate>& candidates, const PictureTest& loads,
                  List<Path>& skins, std::vector<std::string>& badFiles);

// Rebuild a list of skins in archives; nothing is tried. An archive that can't be read is reported
// by gsReadFARdir. Raise 6 past 32767 entries.
void listSkinEntries(const SkinQuery& query, List<FarSkinEntry>& skins);
void listHandEntries(List<FarSkinEntry>& skins);

// The message about bad files; a game text, lines ended by CR LF.
std::string badSkinReport(const std::vector<std::string>& badFiles);

}  // namespace marlowick

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/memory_block.h"
#include "display/controls/text_field.h"
#include "display/family.h"
#include "program/program_form.h"
#include "tuner/preset_words.h"

namespace hmonitor {

/// The editor of the sixteen memory presets, with the general options of the panels in its wide
/// part. While it is open, the rack is disabled.
class Form_bSetMemories final : public ProgramForm {
 public:
    static constexpr int kMemories = hmonitor::MemoryBlock::kMemories;

    explicit Form_bSetMemories(Program& program);

    void Command1();                                ///< shows the selected memory
    void Command2();                                ///< draws its number
    void Command3(SegmentDigit& place, int digit);  ///< draws one digit of it
    void Command4();                                ///< loads the options
    void Command5();                                ///< colours the preset keys
    void advan();                                   ///< saves the options

    void activated() override;
    void closeRequested() override;

    display::Panel Faceplate{*this, "Faceplate"};

    // The selected memory.
    display::Panel MemoryWell{*this, "MemoryWell"};
    SegmentDigit memoryTens{*this, "Line", upFrom(1)};
    SegmentDigit memoryUnits{*this, "Line", upFrom(8)};
    display::Label Label_Selected{*this, "Label_Selected"};
    display::Family<display::Key, kMemories, 1> presets{*this,
                                                        "SSCommand#"};  ///< key n selects memory n
    // What all of them hold, a line each.
    display::Panel ListWell{*this, "ListWell"};
    display::Family<display::Label, kMemories, 1> ListNumber{*this, "ListNumber#"};
    display::Family<display::Label, kMemories, 1> ListName{*this, "ListName#"};
    display::Family<display::Label, kMemories, 1> ListFrequency{*this, "ListFrequency#"};
    display::Label Label_Frequency{*this, "Label_Frequency"};
    display::TextField Text1{*this, "Text1"};  ///< frequency in MHz
    display::Label Label_Name{*this, "Label_Name"};
    display::TextField Text2{*this, "Text2"};        ///< station name
    display::Key SSCommand20{*this, "SSCommand20"};  ///< save
    display::Key SSCommand22{*this, "SSCommand22"};  ///< delete

    display::Key SSCommand17{*this, "SSCommand17"};  ///< accept and close
    display::Key SSCommand18{*this, "SSCommand18"};  ///< cancel
    display::Key SSCommand19{*this, "SSCommand19"};  ///< shows and hides the options

    // The options, in the wide part.
    display::Panel Options{*this, "Options"};
    display::Label Label_Correction{*this, "Label_Correction"};
    display::TextField label_dbCorrection{*this, "label_dbCorrection"};
    display::Key SSCommand21{*this, "SSCommand21"};  ///< unlocks the correction
    display::CheckBox SSCheck1{*this, "SSCheck1"};   ///< odd frequencies only
    display::CheckBox SSCheck2{*this, "SSCheck2"};   ///< all frequencies
    display::CheckBox SSCheck3{*this, "SSCheck3"};   ///< log files of the preset

    std::optional<hmonitor::MemoryBlock> MemoryBlock;  ///< the content at the first showing
    SmallText SelectedMemory;                          ///< "1" to "16", or "cero" for none
    int IsEmptySlot = 0;                               ///< 1 when the selected memory is empty
    int WidthState = 2;                                ///< 1 narrow, 2 wide
    int LoadedOnce = 0;                                ///< 1 once the first showing has run

 protected:
    void layOut() override;
    void onLoad() override;

 private:
    void layOutMemory();
    void layOutList();
    void layOutKeys();
    void layOutOptions();
    void bindFields();

    hmonitor::MemoryBlock readBlock() const;
    int selected() const;
    bool presetSelected() const;
    bool opensToStore() const;
    void select(int memory);
    void tuneSelected();
    void showEmpty();
    void markSelected();
    void listMemory(const hmonitor::MemoryBlock& block, int memory);
    void offerTunedFrequency();

    void save();
    void saveAs(std::string_view frequency);
    void erase();
    void accept();
    void cancel();
    void close();
    void changeWidth();
    /// Saves and deletions since the dialog opened.
    void countChanges(int changes);
    void exclude(display::CheckBox& changed, display::CheckBox& other);

    bool excluding_ = false;
    int changes_ = 0;
    /// The tool tip of "Cancel" while there are changes to take back.
    std::string cancelTip_;
    /// The tool tips of the keys of the presets.
    std::array<PresetTip, kMemories + 1> presetTips_;
};

}  // namespace hmonitor

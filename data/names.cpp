#include "data/names.h"

#include <array>

namespace zentaline {
namespace {

// Windows-1252, a cell of 16 bytes for each name; a line holds half a row of the panel (11 to 14, 15 to 18).
constexpr std::size_t kCell = 16;

// clang-format off
constexpr std::array<std::string_view, 5> kProgramNames = {
    // Bank A
    "Piano 1         " "Piano 2         " "Piano 3         " "Honky-tonk      "
    "E. Piano 1      " "E. Piano 2      " "Harpsicord      " "Clavinet        "
    "Celesta         " "Glockenspiel    " "Music Box       " "Vibraphone      "
    "Marimba         " "Xylophone       " "Tubular Bell    " "Santur          "
    "Organ 1         " "Organ 2         " "Organ 3         " "ChurchOrgan     "
    "Reed Organ      " "Musette         " "Harmonica       " "Bandoneon       "
    "Nylon Gtr.      " "Steel Gtr.      " "Jazz Gtr.       " "Clean Gtr.      "
    "Muted Gtr.      " "Overdrive       " "Dist. gtr.      " "GT.Harm.        "
    "Acoustic Bs.    " "Fingered Bs.    " "Picked Bs. 1    " "Fretless Bs.    "
    "Slap Bass 1     " "Slap Bass 2     " "SynthBass 1     " "SynthBass 2     "
    "Violin          " "Viola           " "Cello           " "Contrabass      "
    "Tremolo Str.    " "PizzicatoStr.   " "Harp            " "Timpani         "
    "Strings         " "Slow Strings    " "SynStrings 1    " "SynStrings 2    "
    "Choir Aahs      " "Voice Oohs      " "SynVox          " "OrchestraHit    "
    "Trumpet         " "Trombone        " "Tuba            " "MuteTrumpet     "
    "French Horns    " "Brass           " "Syn.Brass1      " "Syn.Brass2      ",
    // Bank B
    "SopranoSax      " "Alto Sax        " "Tenor Sax       " "Baritone Sax    "
    "Oboe 1          " "EnglishHorn     " "Bassoon         " "Clarinet        "
    "Piccolo         " "Flute           " "Recorder        " "Pan Flute       "
    "Bottle Blow     " "Shaku 1         " "Whistle 1       " "Ocarina 1       "
    "SquareWave      " "Saw Wave        " "Syn.Calliope    " "Chiffer Lead    "
    "Charang         " "Solo Vox        " "5Th Wave        " "Bass & Lead     "
    "Fantasia        " "Warm Pad        " "PolySynth       " "Space Voice     "
    "BowedGlass      " "Metal Pad       " "Halo Pad        " "Sweep Pad       "
    "Ice Rain        " "SoundTrack      " "Crystal         " "Atmosphere      "
    "Brightness      " "Goblin          " "Echo Drops      " "Star Theme      "
    "Sitar           " "Banjo           " "Shamisen        " "Koto            "
    "Kalimba         " "Bagpipe         " "Fiddle          " "Shanai          "
    "Tinkle Bell     " "Agogo           " "Steel Drums     " "Woodblock       "
    "Taiko           " "Melo. Tom       " "Synth Drum      " "ReverseCym.     "
    "Gt.FretNoise    " "Breath Noise    " "Seashore        " "Birds           "
    "Telephone 1     " "Helicopter      " "Applause        " "Gun Shot        ",
    // Bank C
    "90's Piano      " "Rock Piano      " "New Piano       " "M1 Piano        "
    "Whirly          " "DW-8000 EP      " "HarpsiFunk      " "Clavmation      "
    "SynCelesta      " "Sistro          " "Orgel           " "SynVibes        "
    "Balaphone       " "Gamelan         " "ChurchBell      " "Celtic Plug     "
    "Gospel Org.     " "ClickOrgan      " "Rotary Org.     " "EuroPipe        "
    "SmallPipe       " "Fr.Musette      " "Akordeon        " "Cassotto        "
    "L&R Ac.Gtr.     " "Strings         " "PedalSteel      " "L&R El. Gtr.    "
    "Clean Funk      " "DistoMutes      " "Solo Dist.      " "PowerChord      "
    "Upright         " "Bass/Harm       " "Picked Bs.2     " "Fat Fretty      "
    "SuperRound      " "DynaSlap        " "Dance Bass      " "Square Bass     "
    "The Strings     " "ChambViola      " "Cello Ens.      " "ChamDBass       "
    "Octave Str.     " "OctavePizz.     " "My dream        " "SftTimpani      "
    "Marcato         " "Exp. Str.       " "AnalogPad       " "AnaStrings      "
    "Doolally        " "AirVoxDbl       " "Glassglide      " "ImpactHit       "
    "FlugeHorn       " "Dynabone        " "OB. Tuba        " "Mute Ens.       "
    "Horns Ens.      " "Brass Band      " "Syn.Brass3      " "Stz<Brass       ",
    // Bank D
    "AltoBreath      " "Folk Sax        " "SoftTenor       " "PerkySaxes      "
    "Oboe 2          " "Woodwinds       " "Small^Orch      " "Clarn. Ens.     "
    "Synth File      " "BreathFlute     " "Traverso        " "Kawala          "
    "BottleBlow      " "Shaku 2         " "Whistle 2       " "Ocarina 2       "
    "Soft Solo       " "Big Lead        " "PurePanLd.      " "Rubby           "
    "Dist.Lead       " "Vox Lead        " "Big Fives       " "Big & Raw       "
    "Thick Pad       " "Soft Pad        " "Farluce         " "Heaven          "
    "Glass Pad       " "Panner Pad      " "Polar Pad       " "Celestial       "
    "Caribean        " "Rave            " "BellPad         " "AmbientPad      "
    "ElastikPad      " "Bell Choir      " "Big Panner      " "Odyssey         "
    "Tambra          " "Bouzouki        " "Oud             " "Kanoon          "
    "Ukulele         " "Jaw Harp        " "Mando Trem.     " "Hichiriki       "
    "WindChimes      " "Cowbell         " "Claves          " "Castanets       "
    "Tsuzumi         " "Oil Drum        " "Rev. Tom        " "Rev. Snare      "
    "Heart Beat      " "Laughing        " "Wind            " "Gallop          "
    "Telephone 2     " "Train           " "Stadium!!       " "Explosion       ",
    // Bank E
    "Piano&Strgs     " "PianoPad        " "Midi Piano      " "Fresh Air       "
    "Mark II bis     " "Hard Tines      " "FunkyRoads      " "PianoVibes      "
    "Tone Wheel      " "70' Organ       " "Theatre Org.    " "Jimmy Org.      "
    "DblBrass        " "SlowSunset      " "Ultra Rez       " "DanceReMix      "
    "R&R Guitar      " "Dobro           " "ElectricAc.     " "Mr.Clean        "
    "Hackbrett       " "Gtr.Strings     " "StereoDist.     " "Gtr/Bass        "
    "FingerDark      " "Dyno Bass       " "Bass/Mute       " "Stick Bass      "
    "Deep House      " "Dr.Octave       " "Rap Bass        " "Zap Bass        "
    "Velo Flute      " "Flute/Muted     " "Trump Ens.      " "Lyle Stack      "
    "Folk Clar.      " "SectWinds       " "FallAngels      " "Lylesircs       "
    "i3 Strings      " "N-Strings       " "Ravel Pad       " "Dark Pad        "
    "Yoshi Pad       " "Swell Pad       " "Light Pizz      " "DblStrings      "
    "LiteVoices      " "DigitalAir      " "Air Vox         " "Ambi.Voice      "
    "Airways         " "Stab Pad        " "Poppin'Pad      " "MonoLead        "
    "Jet Star        " "Space Wing      " "Ambience        " "Glide Fx        "
    "SteamCloud      " "WhiteNoise      " "Fragments       " "Brass Fall      ",
};

constexpr std::string_view kDrumKitNames =
    "GM Kit 1        " "GM Kit 2        " "Room Kit        " "Power Kit       "
    "Electronic Kit  " "Analog Kit      " "Dance Kit       " "Jazz Kit        "
    "Brush Kit       " "Orchestra Kit   " "Percussion Kit  " "Latin Perc. Kit "
    "Arabian Kit     " "SFX Kit         " "(User 1)        " "(User 2)        ";

constexpr std::array<std::string_view, 128> kStyleNames = {
    // Bank A
    "8 Beat 1        ", "8 Beat 2        ", "8 Beat 3        ", "8 Beat 4        ",
    "8 Beat Analog   ", "8 Beat Rock     ", "Bt. Shuffle     ", "R&B             ",
    "16 Beat 1       ", "16 Beat 2       ", "16 Beat 3       ", "16 Beat 4       ",
    "16Beat pop      ", "16BeatAnalog    ", "16 Beat Funk    ", "16 Beat Rock    ",
    "Slow Pop        ", "Slow Rock 1     ", "Slow Rock 2     ", "Flipper 6/8     ",
    "Flipper 4/4     ", "Twist           ", "Hully Gully     ", "Surf Rock       ",
    "Party Polka     ", "Disco Party     ", "Motown          ", "Love Disco      ",
    "Disco '70       ", "80's Dance      ", "House           ", "Techno          ",
    "Progress.       ", "Underground     ", "Jungle          ", "Garage          ",
    "Rap             ", "Hip Hop         ", "Dancing Tribe   ", "Down Beat       ",
    "Bossa 1         ", "Bossa 2         ", "Bossa 3         ", "Samba 1         ",
    "Samba 2         ", "Beguine         ", "Last Rhumba     ", "Cha Cha Cha     ",
    "Tango           ", "Habanera        ", "Paso Doble      ", "Cumbia          ",
    "Bajon           ", "Calypso         ", "Reggae          ", "Dance Reggae    ",
    "Mambo           ", "Salsa           ", "Merengue        ", "Meneito         ",
    "Macarena        ", "Tikytikit\xE0      ", "Lambada         ", "Disco Samba     ",
    // Bank B
    "I. Waltz        ", "Mazurka         ", "Polka           ", "German Waltz    ",
    "Laendler        ", "GermanPolka     ", "WaltzMusette    ", "French March    ",
    "Wien Waltz      ", "Slow Waltz 1    ", "Slow Waltz 2    ", "Fox Trot 1      ",
    "Fox Trot 2      ", "Big Band Fox    ", "Quick step      ", "Charleston      ",
    "40's Big Band   ", "Big Band        ", "Fast Big Band   ", "Latin Big Band  ",
    "Broadway        ", "Hollywood       ", "Jazz Waltz      ", "5/4 Swing       ",
    "Swing Ballad    ", "Medium Swing    ", "Be bop          ", "Acid Jazz       ",
    "Latin Jazz      ", "New Jazz        ", "Party Funk      ", "Groove          ",
    "R & B           ", "6/8 Blues       ", "Gospel          ", "Blues Shuffle   ",
    "Pub Shuffle     ", "Hip Blues       ", "R&B Funk        ", "Rhythm&Funk     ",
    "Light Rock      ", "Pop Rock        ", "Open Rock       ", "Heavy Rock      ",
    "Rock Ballad     ", "Half Time       ", "Rock & Roll     ", "Rock Hip Hop    ",
    "Country         ", "Country beat    ", "Country Bld.    ", "Dixieland       ",
    "March           ", "Tarantella      ", "Sevillana       ", "Gipsy           ",
    "9/8 Roman       ", "Ciftetelli      ", "Mariachi        ", "Raspa           ",
    "Baroque         ", "Minuet          ", "Bolero          ", "New Age         ",
};
// clang-format on

constexpr bool SizesAreRight() {
  for (std::string_view bank : kProgramNames) {
    if (bank.size() != 64 * kCell) return false;
  }
  for (std::string_view style : kStyleNames) {
    if (style.size() != kCell) return false;
  }
  return kDrumKitNames.size() == 16 * kCell;
}
static_assert(SizesAreRight());

constexpr std::string_view kBlankName = "                ";
static_assert(kBlankName.size() == kCell);

std::string_view CellOf(std::string_view table, int n) {
  if (n < 0 || static_cast<std::size_t>(n) >= table.size() / kCell) return kBlankName;
  return table.substr(static_cast<std::size_t>(n) * kCell, kCell);
}

}  // namespace

std::string_view ProgramNames(int bank) {
  return bank >= 0 && bank < 5 ? kProgramNames[static_cast<std::size_t>(bank)] : std::string_view();
}

std::string_view DrumKitNames() {
  return kDrumKitNames;
}

std::string_view ProgramName(int bank, int n) {
  return CellOf(ProgramNames(bank), n);
}

std::string_view DrumKitName(int n) {
  return CellOf(kDrumKitNames, n);
}

std::string_view StyleName(int n) {
  return n >= 0 && n < 128 ? kStyleNames[static_cast<std::size_t>(n)] : kBlankName;
}

}  // namespace zentaline

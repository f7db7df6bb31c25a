// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/architecture/standard_names.h"

#include <functional>
#include <map>
#include <regex>
#include <sstream>

namespace hmonitor::test {

namespace {

struct Header {
    const char* header;
    const char* names;
};

// What the tree uses of the standard library. A name that several headers declare stands with the
// one that it is used from here.
constexpr Header kHeaders[] = {
    {"algorithm",
     "sort ranges::sort stable_sort min max clamp find find_if any_of all_of none_of "
     "copy copy_n fill fill_n count count_if lower_bound upper_bound equal transform "
     "rotate unique remove_if reverse minmax minmax_element max_element min_element "
     "nth_element binary_search ranges::any_of ranges::all_of ranges::none_of "
     "ranges::find ranges::find_if ranges::copy ranges::fill ranges::count "
     "ranges::count_if ranges::max ranges::min ranges::max_element "
     "ranges::min_element ranges::lower_bound ranges::upper_bound ranges::equal "
     "ranges::transform ranges::reverse ranges::contains search is_sorted "
     "ranges::is_sorted ranges::stable_sort ranges::for_each for_each partial_sort "
     "set_difference ranges::unique replace ranges::replace_if ranges::binary_search "
     "ranges::find_if_not copy_if"},
    {"array", "array to_array"},
    {"atomic",
     "atomic atomic_flag memory_order_relaxed memory_order_acquire "
     "memory_order_release"},
    {"bit", "bit_cast endian popcount bit_ceil countr_zero bit_width has_single_bit"},
    {"bitset", "bitset"},
    {"cctype", "isdigit isspace isalpha toupper tolower isxdigit"},
    {"charconv", "from_chars to_chars chars_format"},
    {"chrono", "chrono:: milli"},
    {"cmath",
     "sin cos tan atan2 atan sqrt exp exp2 log log10 log2 pow floor ceil round "
     "lround llround trunc hypot fabs isnan isfinite isinf fmod remainder nearbyint "
     "lrint rint asin acos sinh cosh tanh cyl_bessel_i copysign nextafter cbrt "
     "signbit"},
    {"compare", "strong_ordering partial_ordering weak_ordering"},
    {"complex", "complex polar conj"},
    {"concepts", "same_as convertible_to invocable integral floating_point derived_from"},
    {"condition_variable", "condition_variable condition_variable_any"},
    {"csignal", "signal raise sig_atomic_t"},
    {"cstdint",
     "int8_t uint8_t int16_t uint16_t int32_t uint32_t int64_t uint64_t uintptr_t "
     "uintmax_t"},
    {"cstdio",
     "printf fprintf snprintf fopen FILE rename perror fputs sscanf fread fclose "
     "clearerr"},
    {"cstdlib", "getenv abort exit _Exit strtod malloc free EXIT_SUCCESS atoi atol"},
    {"cstring", "memcpy memset memmove memcmp strlen strcmp strncmp strerror strchr"},
    {"ctime", "time tm mktime localtime time_t gmtime strftime"},
    {"deque", "deque"},
    {"exception",
     "exception exception_ptr current_exception rethrow_exception terminate "
     "set_terminate"},
    {"filesystem", "filesystem::"},
    {"fstream", "ifstream ofstream fstream"},
    {"functional",
     "function bind reference_wrapper ref cref hash less greater plus "
     "move_only_function"},
    {"future", "future promise async"},
    {"initializer_list", "initializer_list"},
    {"iomanip", "setw setprecision setfill put_time"},
    {"iostream", "cout cerr cin clog"},
    {"istream", "istream"},
    {"iterator", "back_inserter inserter istreambuf_iterator istream_iterator make_move_iterator"},
    {"latch", "latch"},
    {"limits", "numeric_limits"},
    {"list", "list"},
    {"locale", "locale"},
    {"map", "map multimap"},
    {"memory",
     "unique_ptr shared_ptr weak_ptr make_unique make_shared enable_shared_from_this "
     "addressof"},
    {"mutex", "mutex lock_guard unique_lock scoped_lock once_flag call_once recursive_mutex"},
    {"new", "nothrow bad_alloc"},
    {"numbers", "numbers::"},
    {"numeric", "accumulate iota gcd lcm inner_product midpoint reduce partial_sum"},
    {"optional", "optional nullopt make_optional"},
    {"ostream", "ostream"},
    {"queue", "queue priority_queue"},
    {"random",
     "mt19937 mt19937_64 uniform_int_distribution uniform_real_distribution "
     "normal_distribution random_device minstd_rand"},
    {"ranges", "views:: ranges::subrange"},
    {"regex", "regex smatch regex_match regex_search"},
    {"semaphore", "counting_semaphore binary_semaphore"},
    {"set", "set multiset"},
    {"source_location", "source_location"},
    {"span", "span as_bytes"},
    {"sstream", "stringstream istringstream ostringstream"},
    {"stdexcept", "runtime_error logic_error invalid_argument out_of_range domain_error"},
    {"stop_token", "stop_token stop_source"},
    {"string", "string wstring u16string u32string to_string getline stod stoi stoll u8string"},
    {"string_view", "string_view u16string_view u32string_view"},
    {"system_error",
     "error_code error_condition system_error generic_category system_category errc "
     "make_error_code"},
    {"thread", "thread jthread this_thread"},
    {"tuple", "tuple tie make_tuple apply"},
    {"type_traits",
     "is_same_v is_base_of_v decay_t conditional_t remove_cvref_t "
     "is_trivially_copyable_v enable_if_t invoke_result_t underlying_type_t "
     "is_integral_v is_floating_point_v is_unsigned_v is_signed_v remove_pointer_t "
     "is_enum_v make_unsigned_t is_void_v"},
    {"typeindex", "type_index"},
    {"unordered_map", "unordered_map"},
    {"unordered_set", "unordered_set"},
    {"utility",
     "pair move forward exchange swap make_pair as_const cmp_less in_range declval "
     "index_sequence make_index_sequence"},
    {"variant", "variant visit get_if holds_alternative monostate"},
    {"vector", "vector"},
};

using Names = std::map<std::string, std::string_view, std::less<>>;

Names readNames() {
    Names names;
    for (const auto& [header, list] : kHeaders) {
        std::istringstream words(list);
        for (std::string word; words >> word;) names.emplace(word, header);
    }
    return names;
}

}  // namespace

std::string_view standardHeaderOf(std::string_view name) {
    static const Names names = readNames();
    const auto found = names.find(name);
    return found == names.end() ? std::string_view() : found->second;
}

std::set<std::string> standardNamesIn(const SourceFile& file) {
    static const std::regex kName(
        R"(\bstd::(ranges::\w+|(chrono|filesystem|numbers|views)::|\w+))");
    std::set<std::string> names;
    for (const std::string& line : file.lines) {
        const std::string code = line.substr(0, line.find("//"));
        if (code.find("std::") == std::string::npos) continue;
        for (std::sregex_iterator at(code.begin(), code.end(), kName), end; at != end; ++at) {
            names.insert((*at)[1]);
        }
    }
    return names;
}

}  // namespace hmonitor::test

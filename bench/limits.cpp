// What no implementation can beat: nothing is computed, the known bytes are stored where they go.
// A drawing is taken apart beforehand into single pixels and runs of pixels, one colour at a time.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <fstream>
#include <iterator>

#include "ours.h"

#ifdef __AVX2__
#include <immintrin.h>
#endif

namespace bench {
namespace {

using Word = std::uint32_t;
using Fill = void (*)(Word* first, std::size_t count, Word word);

void fill_wmemset(Word* first, std::size_t count, Word word) {
    std::wmemset(reinterpret_cast<wchar_t*>(first), static_cast<wchar_t>(word), count);
}

/// Stores the bytes of one grey: as many bytes, if not the same.
void fill_memset(Word* first, std::size_t count, Word word) {
    std::memset(first, static_cast<int>(word & 0xFF), count * sizeof word);
}

typedef Word Words __attribute__((vector_size(32), aligned(4), may_alias));

inline void fill_vectors(Word* first, std::size_t count, Word word) {
    const Words words = {word, word, word, word, word, word, word, word};
    if (count < 8) {
        while (count-- > 0) *first++ = word;
        return;
    }
    Word* const last = first + count - 8;
    for (; first < last; first += 8) *reinterpret_cast<Words*>(first) = words;
    *reinterpret_cast<Words*>(last) = words;
}

/// Past the caches, for pictures that do not fit them.
void fill_streaming(Word* first, std::size_t count, Word word) {
#ifdef __AVX2__
    if (count >= 1024) {
        const std::size_t unaligned = (32 - (reinterpret_cast<std::uintptr_t>(first) & 31)) / 4;
        fill_vectors(first, unaligned, word);
        Word* const end = first + count;
        first += unaligned;
        for (; end - first >= 8; first += 8) {
            _mm256_stream_si256(reinterpret_cast<__m256i*>(first),
                                _mm256_set1_epi32(static_cast<int>(word)));
        }
        _mm_sfence();
        count = static_cast<std::size_t>(end - first);
    }
#endif
    fill_vectors(first, count, word);
}

struct Run {
    std::uint32_t at, count;
};

/// What consecutive calls in one colour store.
struct Layer {
    Word word;
    std::vector<std::uint32_t> pixels;
    std::vector<Run> runs;
};

Word word_of(orvel_color color) {
    Word word;
    std::memcpy(&word, &color, sizeof word);
    return word;
}

/// Rows that a call may touch, last excluded.
Run rows_of(const Op& op, int height) {
    int top = op.y0, bottom = op.y0 + 1;
    switch (op.shape) {
    case Shape::pixel: break;
    case Shape::text: bottom = op.y0 + 7; break;
    case Shape::words:
        top = op.y0 - op.x1;
        bottom = op.y0 + op.x1;
        break;
    case Shape::rect:
    case Shape::fill: bottom = op.y0 + op.y1; break;
    case Shape::circle:
    case Shape::disc:
        top = op.y0 - op.x1;
        bottom = op.y0 + op.x1 + 1;
        break;
    case Shape::line:
        top = std::min(op.y0, op.y1);
        bottom = std::max(op.y0, op.y1) + 1;
        break;
    case Shape::triangle:
        top = std::min({op.y0, op.y1, op.y2});
        bottom = std::max({op.y0, op.y1, op.y2}) + 1;
        break;
    }
    top = std::clamp(top, 0, height);
    bottom = std::clamp(bottom, top, height);
    return {static_cast<std::uint32_t>(top), static_cast<std::uint32_t>(bottom - top)};
}

void add_stores(Layer& layer, const Ours& drawn, unsigned paper, Run rows, int width) {
    const auto top = static_cast<int>(rows.at), bottom = top + static_cast<int>(rows.count);
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < width; ++x) {
            const int first = x;
            while (x < width && drawn.at(x, y) != paper) ++x;
            const auto at = static_cast<std::uint32_t>(y * width + first);
            if (x - first == 1) layer.pixels.push_back(at);
            if (x - first > 1) layer.runs.push_back({at, static_cast<std::uint32_t>(x - first)});
        }
    }
}

std::vector<Layer> layers_of(const Workload& work) {
    std::vector<Layer> layers;
    Ours scratch(work.width, work.height);
    scratch.clear(kPaper);
    const unsigned paper = scratch.at(0, 0);
    for (const Op& op : work.ops) {
        const Word word = word_of(op.color);
        if (layers.empty() || layers.back().word != word) layers.push_back({word, {}, {}});
        scratch.clear(kPaper);
        scratch.ink({255, 0, 255, 255});
        with_shape<Ours>(op.shape, [&](auto call) { call(scratch, op); });
        add_stores(layers.back(), scratch, paper, rows_of(op, work.height), work.width);
    }
    return layers;
}

/// Memory of a canvas, already touched.
struct Memory {
    std::vector<Word> words;
    explicit Memory(const Workload& work)
        : words(static_cast<std::size_t>(work.width) * static_cast<std::size_t>(work.height),
                word_of(kPaper)) {}
};

template <Fill fill>
std::function<void(int)> stores(const Workload& work) {
    auto memory = std::make_shared<Memory>(work);
    return [memory, layers = layers_of(work)](int times) {
        Word* const words = memory->words.data();
        while (times-- > 0) {
            for (const Layer& layer : layers) {
                for (const std::uint32_t at : layer.pixels) words[at] = layer.word;
                for (const Run& run : layer.runs) fill(words + run.at, run.count, layer.word);
            }
            asm volatile("" : : "r"(words) : "memory");
        }
    };
}

template <Fill fill>
std::function<void(int)> clearing(const Workload& work) {
    auto memory = std::make_shared<Memory>(work);
    return [memory](int times) {
        while (times-- > 0) {
            fill(memory->words.data(), memory->words.size(), word_of(kInk));
            asm volatile("" : : "r"(memory->words.data()) : "memory");
        }
    };
}

template <Fill fill>
std::function<void(int)> creating(const Workload& work) {
    const std::size_t count = Memory(work).words.size();
    return [count](int times) {
        while (times-- > 0) {
            Word* words = static_cast<Word*>(std::malloc(count * sizeof(Word)));
            asm volatile("" : "+r"(words));  // lest it become calloc, which skips fresh memory
            fill(words, count, 0xFF000000u);
            asm volatile("" : : "r"(words) : "memory");
            std::free(words);
        }
    };
}

std::vector<char> bytes_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// One write of the finished file, which lies at @p path already.
std::function<void(int)> writing(const std::string& path) {
    return [bytes = bytes_of(path), path](int times) {
        while (times-- > 0) {
            const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
            if (write(file, bytes.data(), bytes.size()) < 0) std::abort();
            close(file);
        }
    };
}

/// One read of the rows that are visible, one copy of each.
std::function<void(int)> reading(const Workload& work) {
    auto memory = std::make_shared<Memory>(work);
    const std::vector<char> bytes = bytes_of(work.file);
    std::uint32_t width, height;
    std::memcpy(&width, &bytes[18], 4);
    std::memcpy(&height, &bytes[22], 4);
    const std::size_t columns = std::min(width, static_cast<std::uint32_t>(work.width - work.x));
    const std::size_t rows = std::min(height, static_cast<std::uint32_t>(work.height - work.y));
    const std::size_t stride = (bytes.size() - 54) / height;
    Word* const corner = memory->words.data() + work.y * work.width + work.x;
    auto buffer = std::make_shared<std::vector<char>>(rows * stride + columns * sizeof(Word));
    return [=, &work](int times) {
        while (times-- > 0) {
            const int file = open(work.file.c_str(), O_RDONLY);
            if (read(file, buffer->data(), rows * stride) < 0) std::abort();
            close(file);
            for (std::size_t row = 0; row < rows; ++row) {
                std::memcpy(corner + row * static_cast<std::size_t>(work.width),
                            buffer->data() + row * stride, columns * sizeof(Word));
            }
            asm volatile("" : : "r"(corner) : "memory");
        }
        (void)memory;
    };
}

template <Fill fill>
Job prepare(const Workload& work) {
    switch (work.task) {
    case Task::create: return {creating<fill>(work), {}};
    case Task::clear: return {clearing<fill>(work), {}};
    case Task::draw:
    case Task::icons:
    case Task::redraw:
    case Task::rebuild:
    case Task::words: return {stores<fill>(work), {}};
    case Task::dashboard: return {};
    case Task::save: return {writing(work.file), {}};
    case Task::bitmap: return {reading(work), {}};
    case Task::tone: return {writing("/tmp/orvelsdk_tone.wav"), {}};
    }
    return {};
}

/// memset can only clear.
Job prepare_memset(const Workload& work) {
    const bool clears = work.task == Task::create || work.task == Task::clear;
    return clears ? prepare<fill_memset>(work) : Job{};
}

}  // namespace

std::vector<Implementation> limits() {
    return {{"memset", Role::limit, prepare_memset},
            {"wmemset", Role::limit, prepare<fill_wmemset>},
            {"vector stores", Role::limit, prepare<fill_vectors>},
            {"streaming stores", Role::limit, prepare<fill_streaming>}};
}

}  // namespace bench

// What decoding alone costs: reads a file to its end, as fast as it goes, and throws the samples
// away. Prints the milliseconds of processor time for one minute of sound.
#include <cstdio>
#include <ctime>
#include <mpg123.h>
#include <vector>

int main(int count, char** arguments) {
    if (count != 2 || mpg123_init() != MPG123_OK) return 2;
    mpg123_handle* decoder = mpg123_new(nullptr, nullptr);
    mpg123_param(decoder, MPG123_ADD_FLAGS, MPG123_QUIET, 0);
    if (!decoder || mpg123_open(decoder, arguments[1]) != MPG123_OK) return 1;
    std::vector<unsigned char> samples(32768);
    std::size_t bytes = 0, total = 0;
    int result = MPG123_OK;
    while (result == MPG123_OK || result == MPG123_NEW_FORMAT) {
        result = mpg123_read(decoder, samples.data(), samples.size(), &bytes);
        total += bytes;
    }
    long rateHz = 44100;
    int channels = 2, encoding = 0;
    mpg123_getformat(decoder, &rateHz, &channels, &encoding);
    const double seconds =
        static_cast<double>(total) / (2.0 * channels * static_cast<double>(rateHz));
    std::timespec spent{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &spent);
    const double ms =
        static_cast<double>(spent.tv_sec) * 1e3 + static_cast<double>(spent.tv_nsec) / 1e6;
    std::printf("%.1f\n", ms * 60 / seconds);
}

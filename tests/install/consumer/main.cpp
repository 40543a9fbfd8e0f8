#include <cstdio>

extern "C" int ConsumerPaint();

int main()
{
    const int colour = ConsumerPaint();
    if (colour != 0x336699) {
        std::printf("unexpected colour %06x\n", colour);
        return 1;
    }
    std::puts("consumer ok");
    return 0;
}

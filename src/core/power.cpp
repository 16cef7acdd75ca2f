// x^y as exp(y log x) carried in double-double arithmetic (a value as an unevaluated sum hi + lo of two
// doubles, about 106 bits), rounded once at the end.
//
// log x: x = 2^k m with m in [1, 2); c = 1/(1 + i/128) to 26 bits for the i nearest to 128 (m - 1), so
// that r = m c - 1 is exact as hi + lo and |r| <= 2^-8; then log x = k log 2 - log c + log(1 + r), with
// -log c from a table (less log 2, and k one more, for m beyond sqrt 2: x near 1 from below gives k = 0
// and no cancellation against k log 2). log(1 + r) = r - r^2/2 + r^3 (1/3 - r/4 + r^2/5 - ... + r^8/11),
// the terms from r^4 on in double (their error is below 2^-87 r).
// exp t: t = n log2/128 + u with |u| <= log2/256, e^t = 2^(n/128) e^u, 2^(j/128) from a table and
// e^u = 1 + u + u^2/2 + u^3 (1/6 + ... + u^4/7!), the terms from u^3 on in double (error below 2^-81).
// The error of the whole is below 2^-75 or so of the result for |y log x| up to 50, 2^-70 up to 745.
//
// Every step is an IEEE operation on doubles in round-to-nearest: the products are split by Dekker's
// method rather than with a fused multiply-add, and the build must not contract a * b + c into one.
#include "core/power.hpp"

#include <bit>
#include <cstdint>
#include <limits>

namespace orvel {
namespace {

struct DD {
    double hi, lo;
};

// a + b exactly, for |a| >= |b| (or a == 0).
inline DD fast_two_sum(double a, double b) {
    const double s = a + b;
    return {s, b - (s - a)};
}

// a + b exactly, any order.
inline DD two_sum(double a, double b) {
    const double s = a + b;
    const double bb = s - a;
    return {s, (a - (s - bb)) + (b - bb)};
}

// a = hi + lo with hi of 26 significant bits and lo of 27 (|a| < 2^995).
inline DD split(double a) {
    const double c = 134217729.0 * a;  // 2^27 + 1
    const double hi = c - (c - a);
    return {hi, a - hi};
}

// a b exactly (|a|, |b| < 2^995, no underflow in the parts).
inline DD two_prod(double a, double b) {
    const double p = a * b;
    const DD x = split(a), y = split(b);
    return {p, ((x.hi * y.hi - p) + x.hi * y.lo + x.lo * y.hi) + x.lo * y.lo};
}

inline double from_bits(uint64_t b) { return std::bit_cast<double>(b); }
inline double pow2(int e) { return from_bits(static_cast<uint64_t>(e + 1023) << 52); }  // -1022 <= e <= 1023

struct LogRow {
    double c, hi, lo;
};
// c = 1/(1 + i/128) rounded to 26 bits, and -log c (less log 2 from i = 54 on) as hi + lo.
constexpr LogRow kLog[129] = {
    {0x1.0000000000000p+0, 0x0.0p+0, 0x0.0p+0},
    {0x1.fc07f00000000p-1, 0x1.fe02b6b106791p-8, -0x1.e44b538c673f4p-67},
    {0x1.f81f820000000p-1, 0x1.fc0a890fc03e4p-7, 0x1.f3db4e851a025p-64},
    {0x1.f4465a0000000p-1, 0x1.7b91acfd5b11cp-6, 0x1.893fa9f13608bp-61},
    {0x1.f07c1f0000000p-1, 0x1.f829b1e783300p-6, 0x1.b3e3f05074478p-60},
    {0x1.ecc07b0000000p-1, 0x1.39e87ebfebd62p-5, 0x1.a015b48db63c3p-61},
    {0x1.e9131a8000000p-1, 0x1.774593832dd01p-5, -0x1.e32c3401eed68p-59},
    {0x1.e573ac8000000p-1, 0x1.b42dd821971bfp-5, 0x1.59a2992e6c2f1p-62},
    {0x1.e1e1e20000000p-1, 0x1.f0a30a01162a7p-5, 0x1.85f3259b11022p-59},
    {0x1.de5d6e0000000p-1, 0x1.1653710a37ae3p-4, 0x1.5312e25359440p-59},
    {0x1.dae6078000000p-1, 0x1.341d78b1bd1d1p-4, -0x1.8733e45d5aeccp-59},
    {0x1.d77b658000000p-1, 0x1.51b0722861841p-4, -0x1.70e36b7460d84p-65},
    {0x1.d41d420000000p-1, 0x1.6f0d272e56b4dp-4, -0x1.106d99604b992p-58},
    {0x1.d0cb590000000p-1, 0x1.8c345d1319b21p-4, 0x1.165a151e21805p-63},
    {0x1.cd85688000000p-1, 0x1.a926d434ad564p-4, -0x1.c9d0b751c3157p-58},
    {0x1.ca4b308000000p-1, 0x1.c5e5477dbc744p-4, 0x1.4fb0bef4db62fp-59},
    {0x1.c71c720000000p-1, 0x1.e27074e2af2e8p-4, -0x1.615782ac8ac09p-60},
    {0x1.c3f8f00000000p-1, 0x1.fec9141dbeabbp-4, 0x1.51728cfa743d2p-59},
    {0x1.c0e0700000000p-1, 0x1.0d77e8cd08e5ap-3, 0x1.9a5dc63e58601p-57},
    {0x1.bdd2b88000000p-1, 0x1.1b72adc6f67a0p-3, 0x1.765811ab86d64p-57},
    {0x1.bacf918000000p-1, 0x1.29552e91ff524p-3, 0x1.682ee2fb6fb7ep-58},
    {0x1.b7d6c40000000p-1, 0x1.371fc161e8f75p-3, -0x1.80c9a4ff5c905p-57},
    {0x1.b4e81b8000000p-1, 0x1.44d2b5e4b7d1fp-3, 0x1.d09eca08bd465p-58},
    {0x1.b203640000000p-1, 0x1.526e5e5a1b438p-3, -0x1.646ff8a44628fp-57},
    {0x1.af286c0000000p-1, 0x1.5ff3060a793d5p-3, -0x1.bc60f05a71a18p-58},
    {0x1.ac57018000000p-1, 0x1.6d60ff459d21dp-3, 0x1.e723b34352a64p-58},
    {0x1.a98ef60000000p-1, 0x1.7ab890410d909p-3, 0x1.fe36b2d74b0b3p-59},
    {0x1.a6d01a8000000p-1, 0x1.87fa05f60c911p-3, -0x1.3b3fdbfdfec45p-57},
    {0x1.a41a418000000p-1, 0x1.9525aa7f456b5p-3, -0x1.0becf83d89cbep-59},
    {0x1.a16d3f8000000p-1, 0x1.a23bc2722b563p-3, 0x1.371c46c9dad0ep-57},
    {0x1.9ec8e98000000p-1, 0x1.af3c94000bff4p-3, -0x1.53c67fdaa4218p-57},
    {0x1.9c2d150000000p-1, 0x1.bc2866ead8cd6p-3, 0x1.20e73a20c1255p-57},
    {0x1.9999998000000p-1, 0x1.c8ff7cf9a9a22p-3, -0x1.3da27de62559cp-59},
    {0x1.970e4f8000000p-1, 0x1.d5c216b8fbb91p-3, 0x1.6e843597e4e95p-57},
    {0x1.948b100000000p-1, 0x1.e27075e2af2e7p-3, -0x1.61578157356b5p-59},
    {0x1.920fb48000000p-1, 0x1.ef0add51c5937p-3, -0x1.615c869ea6c9ep-57},
    {0x1.8f9c190000000p-1, 0x1.fb9186b5e3e2bp-3, -0x1.baaae64f4c576p-57},
    {0x1.8d30190000000p-1, 0x1.040258d74d041p-2, 0x1.1009ef231643fp-56},
    {0x1.8acb910000000p-1, 0x1.0a324e0f390e3p-2, 0x1.8fcfde8019c03p-56},
    {0x1.886e5f0000000p-1, 0x1.1058bfb6e4ad5p-2, 0x1.ebfa0ab694872p-58},
    {0x1.8618618000000p-1, 0x1.1675cacaba60ep-2, 0x1.6731f55d970e1p-60},
    {0x1.83c9778000000p-1, 0x1.1c898c88999fbp-2, 0x1.853a39f32543cp-56},
    {0x1.8181818000000p-1, 0x1.22941fc0f7966p-2, -0x1.7675eb096235ap-56},
    {0x1.7f40600000000p-1, 0x1.2895a0bde86a4p-2, -0x1.0a5b682d74d38p-57},
    {0x1.7d05f40000000p-1, 0x1.2e8e2bee11d31p-2, -0x1.0f4cdb90968a4p-56},
    {0x1.7ad2208000000p-1, 0x1.347dd9cf87d55p-2, -0x1.e7298afcac144p-58},
    {0x1.78a4c80000000p-1, 0x1.3a64c596945eap-2, -0x1.8d0ca31369da2p-58},
    {0x1.767dce8000000p-1, 0x1.404307c26a7e5p-2, -0x1.aeafb6653d5c2p-56},
    {0x1.745d178000000p-1, 0x1.4618bb81c5ec3p-2, 0x1.142dec8b779c8p-56},
    {0x1.7242880000000p-1, 0x1.4be5f937778a1p-2, -0x1.cb366b633ad24p-58},
    {0x1.702e060000000p-1, 0x1.51aad7c2df82ep-2, -0x1.0db0aebabfed6p-60},
    {0x1.6e1f768000000p-1, 0x1.5767720655a6dp-2, -0x1.3752498789492p-60},
    {0x1.6c16c18000000p-1, 0x1.5d1bdbbd809cap-2, 0x1.a436383a35536p-56},
    {0x1.6a13cd0000000p-1, 0x1.62c82f679c795p-2, 0x1.2e3d7c8efd073p-56},
    {0x1.6816818000000p-1, -0x1.5d5bde3995f30p-2, 0x1.f5c1148655df8p-56},
    {0x1.661ec68000000p-1, -0x1.57bf74d28d1fbp-2, 0x1.e3a468c7ff907p-56},
    {0x1.642c858000000p-1, -0x1.522ae0438a3d8p-2, 0x1.0fbf4d9e934bdp-56},
    {0x1.623fa78000000p-1, -0x1.4c9e0a0f72c3cp-2, 0x1.0d5b0ad4ade84p-57},
    {0x1.6058160000000p-1, -0x1.4718dc171c41bp-2, -0x1.0fb4c14b01999p-60},
    {0x1.5e75bb8000000p-1, -0x1.419b42175e8c7p-2, -0x1.66f6486bd7478p-58},
    {0x1.5c98828000000p-1, -0x1.3c2526cb33183p-2, 0x1.39a4fd6241d8ep-57},
    {0x1.5ac0568000000p-1, -0x1.36b676dde1116p-2, -0x1.3d4c3c23b0f47p-56},
    {0x1.58ed230000000p-1, -0x1.314f1e0535ce4p-2, 0x1.4f69909ea43dcp-56},
    {0x1.571ed40000000p-1, -0x1.2bef087dc9353p-2, 0x1.4adad78e9b5dep-56},
    {0x1.5555558000000p-1, -0x1.269621934db92p-2, 0x1.f1051fb7a52afp-60},
    {0x1.5390948000000p-1, -0x1.214456a2eb8d4p-2, -0x1.736e91aac475fp-57},
    {0x1.51d07e8000000p-1, -0x1.1bf995a9a6b94p-2, -0x1.1228a3a707c43p-56},
    {0x1.5015018000000p-1, -0x1.16b5cd4ccfb73p-2, 0x1.33242d356e621p-56},
    {0x1.4e5e0a8000000p-1, -0x1.1178e84a7e47cp-2, 0x1.7263a5ed81be6p-57},
    {0x1.4cab888000000p-1, -0x1.0c42d6a0162e3p-2, -0x1.cd63cedec4f72p-61},
    {0x1.4afd6a0000000p-1, -0x1.071385f4d5862p-2, -0x1.c5b16ed4d3be3p-56},
    {0x1.49539e0000000p-1, -0x1.01eae4aa6c690p-2, 0x1.141487e43eecap-58},
    {0x1.47ae148000000p-1, -0x1.f991c6eb3b379p-3, -0x1.e665066fc2b4cp-57},
    {0x1.460cbc8000000p-1, -0x1.ef5ade51cffe6p-3, 0x1.092b2ddc705f6p-58},
    {0x1.446f868000000p-1, -0x1.e530f10671011p-3, -0x1.e7605959b03f5p-63},
    {0x1.42d6628000000p-1, -0x1.db13dbe94893fp-3, -0x1.e0c8ea85f3fb1p-57},
    {0x1.4141418000000p-1, -0x1.d10380b655e79p-3, 0x1.8e75b1e0ce42ep-59},
    {0x1.3fb0140000000p-1, -0x1.c6ffbc8f00f71p-3, 0x1.9e58b2c54f9fap-57},
    {0x1.3e22cc0000000p-1, -0x1.bd0874c3bd8abp-3, -0x1.fba6ac93f4d84p-57},
    {0x1.3c995a8000000p-1, -0x1.b31d86e1bce3bp-3, 0x1.7993aa431cffap-57},
    {0x1.3b13b10000000p-1, -0x1.a93ed248ad9e1p-3, -0x1.795f517d2e402p-58},
    {0x1.3991c30000000p-1, -0x1.9f6c420889662p-3, 0x1.db97992514607p-57},
    {0x1.3813810000000p-1, -0x1.95a5ac5f7017dp-3, -0x1.18589d09849c7p-59},
    {0x1.3698df0000000p-1, -0x1.8beafd1b8fe8ap-3, 0x1.7e2abba4a62e3p-57},
    {0x1.3521cf8000000p-1, -0x1.823c15051a3c0p-3, -0x1.39a619ca30fa4p-62},
    {0x1.33ae458000000p-1, -0x1.7898d6f044c71p-3, -0x1.3b87b67902254p-57},
    {0x1.323e348000000p-1, -0x1.6f0127cf56abbp-3, 0x1.adcb38c2c9784p-58},
    {0x1.30d1900000000p-1, -0x1.6574eb68c133ap-3, 0x1.3a69e1f36ee28p-57},
    {0x1.2f684c0000000p-1, -0x1.5bf407b543db1p-3, 0x1.1f5b3f6b8a29ap-61},
    {0x1.2e025c0000000p-1, -0x1.527e5e2a1b58dp-3, 0x1.38d4b41320354p-60},
    {0x1.2c9fb50000000p-1, -0x1.4913d9433b560p-3, 0x1.0aab01e32cdf0p-57},
    {0x1.2b404b0000000p-1, -0x1.3fb45ba1928cap-3, 0x1.a5f9a60746c09p-59},
    {0x1.29e4128000000p-1, -0x1.365fca3159016p-3, 0x1.e55f72fffb2ffp-57},
    {0x1.288b010000000p-1, -0x1.2d160fb068139p-3, 0x1.6dcd20027f206p-57},
    {0x1.27350b8000000p-1, -0x1.23d7126c9c202p-3, 0x1.9f38161136814p-57},
    {0x1.25e2270000000p-1, -0x1.1aa2b7aa3f72ap-3, 0x1.45778ecf60d15p-58},
    {0x1.2492490000000p-1, -0x1.1178e7227e47bp-3, 0x1.0e63a69ac713cp-58},
    {0x1.2345678000000p-1, -0x1.08598b15e3a06p-3, -0x1.da4ff66e3aa23p-57},
    {0x1.21fb780000000p-1, -0x1.fe89129dbd565p-4, -0x1.4d82f752c5c5dp-60},
    {0x1.20b4710000000p-1, -0x1.ec739b60a111bp-4, 0x1.235fc9d8dc6a6p-58},
    {0x1.1f70480000000p-1, -0x1.da727838446a0p-4, -0x1.401fa7c1ddac2p-58},
    {0x1.1e2ef38000000p-1, -0x1.c8857d33c4b1fp-4, -0x1.7e19669bf5e03p-59},
    {0x1.1cf06b0000000p-1, -0x1.b6ac8afad5b1ap-4, 0x1.882bf69c2fd7bp-58},
    {0x1.1bb4a40000000p-1, -0x1.a4e763cb1bc38p-4, 0x1.7b5ca204397afp-58},
    {0x1.1a7b960000000p-1, -0x1.9335e4d594988p-4, -0x1.70eaf4f4bbbe8p-59},
    {0x1.1945380000000p-1, -0x1.8197e2740e3f0p-4, 0x1.1834803aef5a0p-62},
    {0x1.1811810000000p-1, -0x1.700d2f4eac0e0p-4, -0x1.36a670c61e13ap-63},
    {0x1.16e0688000000p-1, -0x1.5e95a3b1791cbp-4, 0x1.71f174b66bb41p-59},
    {0x1.15b1e60000000p-1, -0x1.4d31165207eacp-4, -0x1.ed3e85945daedp-59},
    {0x1.1485f10000000p-1, -0x1.3bdf5c4d1ee63p-4, 0x1.d4b448e34bb26p-58},
    {0x1.135c810000000p-1, -0x1.2aa04924717a4p-4, 0x1.6574e3c568fddp-60},
    {0x1.12358e8000000p-1, -0x1.1973bdac65567p-4, 0x1.6f2c1b38be3d0p-58},
    {0x1.1111110000000p-1, -0x1.08598a59e3a06p-4, -0x1.147fb2d3f5bc3p-61},
    {0x1.0fef010000000p-1, -0x1.eea31a206b87bp-5, 0x1.849f92bd46cd9p-60},
    {0x1.0ecf568000000p-1, -0x1.ccb7357ddb2bep-5, 0x1.223ee2adb1500p-61},
    {0x1.0db20a8000000p-1, -0x1.aaef2bffb10fcp-5, 0x1.7056226b5afe7p-60},
    {0x1.0c97150000000p-1, -0x1.894aa1c9fb343p-5, -0x1.28be97675f792p-60},
    {0x1.0b7e6f0000000p-1, -0x1.67c9568d4bb4bp-5, 0x1.5fec1154444bep-59},
    {0x1.0a68108000000p-1, -0x1.466ae8a2de3e4p-5, -0x1.9c520bf7783a8p-60},
    {0x1.0953f38000000p-1, -0x1.252f3108d183ep-5, 0x1.557f794cdfe6bp-59},
    {0x1.0842108000000p-1, -0x1.0415d81e74444p-5, -0x1.805cf1d6a8b77p-59},
    {0x1.0732608000000p-1, -0x1.c63d25e14aae8p-6, 0x1.30030e0c7b2e2p-60},
    {0x1.0624dd0000000p-1, -0x1.8492470c8caaep-6, -0x1.cda4f65160658p-65},
    {0x1.05197f8000000p-1, -0x1.432a92f980cc1p-6, 0x1.bedaf38fb0c3dp-60},
    {0x1.0410410000000p-1, -0x1.0205648935847p-6, -0x1.4f91d08032393p-61},
    {0x1.03091b8000000p-1, -0x1.8244a0f88a28ap-7, 0x1.c34e801e5cbf7p-62},
    {0x1.0204080000000p-1, -0x1.01014f588de6dp-7, -0x1.46662bec2797ap-62},
    {0x1.0101010000000p-1, -0x1.0080549588b35p-8, -0x1.d96638cf4e121p-62},
    {0x1.0000000000000p-1, 0x0.0p+0, 0x0.0p+0},
};

// 2^(j/128) as hi + lo.
constexpr DD kExp2[128] = {
    {0x1.0000000000000p+0, 0x0.0p+0},
    {0x1.0163da9fb3335p+0, 0x1.b61299ab8cdb7p-54},
    {0x1.02c9a3e778061p+0, -0x1.19083535b085dp-56},
    {0x1.04315e86e7f85p+0, -0x1.0a31c1977c96ep-54},
    {0x1.059b0d3158574p+0, 0x1.d73e2a475b465p-55},
    {0x1.0706b29ddf6dep+0, -0x1.c91dfe2b13c27p-55},
    {0x1.0874518759bc8p+0, 0x1.186be4bb284ffp-57},
    {0x1.09e3ecac6f383p+0, 0x1.1487818316136p-54},
    {0x1.0b5586cf9890fp+0, 0x1.8a62e4adc610bp-54},
    {0x1.0cc922b7247f7p+0, 0x1.01edc16e24f71p-54},
    {0x1.0e3ec32d3d1a2p+0, 0x1.03a1727c57b53p-59},
    {0x1.0fb66affed31bp+0, -0x1.b9bedc44ebd7bp-57},
    {0x1.11301d0125b51p+0, -0x1.6c51039449b3ap-54},
    {0x1.12abdc06c31ccp+0, -0x1.1b514b36ca5c7p-58},
    {0x1.1429aaea92de0p+0, -0x1.32fbf9af1369ep-54},
    {0x1.15a98c8a58e51p+0, 0x1.2406ab9eeab0ap-55},
    {0x1.172b83c7d517bp+0, -0x1.19041b9d78a76p-55},
    {0x1.18af9388c8deap+0, -0x1.11023d1970f6cp-54},
    {0x1.1a35beb6fcb75p+0, 0x1.e5b4c7b4968e4p-55},
    {0x1.1bbe084045cd4p+0, -0x1.95386352ef607p-54},
    {0x1.1d4873168b9aap+0, 0x1.e016e00a2643cp-54},
    {0x1.1ed5022fcd91dp+0, -0x1.1df98027bb78cp-54},
    {0x1.2063b88628cd6p+0, 0x1.dc775814a8495p-55},
    {0x1.21f49917ddc96p+0, 0x1.2a97e9494a5eep-55},
    {0x1.2387a6e756238p+0, 0x1.9b07eb6c70573p-54},
    {0x1.251ce4fb2a63fp+0, 0x1.ac155bef4f4a4p-55},
    {0x1.26b4565e27cddp+0, 0x1.2bd339940e9d9p-55},
    {0x1.284dfe1f56381p+0, -0x1.a4c3a8c3f0d7ep-54},
    {0x1.29e9df51fdee1p+0, 0x1.612e8afad1255p-55},
    {0x1.2b87fd0dad990p+0, -0x1.10adcd6381aa4p-59},
    {0x1.2d285a6e4030bp+0, 0x1.0024754db41d5p-54},
    {0x1.2ecafa93e2f56p+0, 0x1.1ca0f45d52383p-56},
    {0x1.306fe0a31b715p+0, 0x1.6f46ad23182e4p-55},
    {0x1.32170fc4cd831p+0, 0x1.a9ce78e18047cp-55},
    {0x1.33c08b26416ffp+0, 0x1.32721843659a6p-54},
    {0x1.356c55f929ff1p+0, -0x1.b5cee5c4e4628p-55},
    {0x1.371a7373aa9cbp+0, -0x1.63aeabf42eae2p-54},
    {0x1.38cae6d05d866p+0, -0x1.e958d3c9904bdp-54},
    {0x1.3a7db34e59ff7p+0, -0x1.5e436d661f5e3p-56},
    {0x1.3c32dc313a8e5p+0, -0x1.efff8375d29c3p-54},
    {0x1.3dea64c123422p+0, 0x1.ada0911f09ebcp-55},
    {0x1.3fa4504ac801cp+0, -0x1.7d023f956f9f3p-54},
    {0x1.4160a21f72e2ap+0, -0x1.ef3691c309278p-58},
    {0x1.431f5d950a897p+0, -0x1.1c7dde35f7999p-55},
    {0x1.44e086061892dp+0, 0x1.89b7a04ef80d0p-59},
    {0x1.46a41ed1d0057p+0, 0x1.c944bd1648a76p-54},
    {0x1.486a2b5c13cd0p+0, 0x1.3c1a3b69062f0p-56},
    {0x1.4a32af0d7d3dep+0, 0x1.9cb62f3d1be56p-54},
    {0x1.4bfdad5362a27p+0, 0x1.d4397afec42e2p-56},
    {0x1.4dcb299fddd0dp+0, 0x1.8ecdbbc6a7833p-54},
    {0x1.4f9b2769d2ca7p+0, -0x1.4b309d25957e3p-54},
    {0x1.516daa2cf6642p+0, -0x1.f768569bd93efp-55},
    {0x1.5342b569d4f82p+0, -0x1.07abe1db13cadp-55},
    {0x1.551a4ca5d920fp+0, -0x1.d689cefede59bp-55},
    {0x1.56f4736b527dap+0, 0x1.9bb2c011d93adp-54},
    {0x1.58d12d497c7fdp+0, 0x1.295e15b9a1de8p-55},
    {0x1.5ab07dd485429p+0, 0x1.6324c054647adp-54},
    {0x1.5c9268a5946b7p+0, 0x1.c4b1b816986a2p-60},
    {0x1.5e76f15ad2148p+0, 0x1.ba6f93080e65ep-54},
    {0x1.605e1b976dc09p+0, -0x1.3e2429b56de47p-54},
    {0x1.6247eb03a5585p+0, -0x1.383c17e40b497p-54},
    {0x1.6434634ccc320p+0, -0x1.c483c759d8933p-55},
    {0x1.6623882552225p+0, -0x1.bb60987591c34p-54},
    {0x1.68155d44ca973p+0, 0x1.038ae44f73e65p-57},
    {0x1.6a09e667f3bcdp+0, -0x1.bdd3413b26456p-54},
    {0x1.6c012750bdabfp+0, -0x1.2895667ff0b0dp-56},
    {0x1.6dfb23c651a2fp+0, -0x1.bbe3a683c88abp-57},
    {0x1.6ff7df9519484p+0, -0x1.83c0f25860ef6p-55},
    {0x1.71f75e8ec5f74p+0, -0x1.16e4786887a99p-55},
    {0x1.73f9a48a58174p+0, -0x1.0a8d96c65d53cp-54},
    {0x1.75feb564267c9p+0, -0x1.0245957316dd3p-54},
    {0x1.780694fde5d3fp+0, 0x1.866b80a02162dp-54},
    {0x1.7a11473eb0187p+0, -0x1.41577ee04992fp-55},
    {0x1.7c1ed0130c132p+0, 0x1.f124cd1164dd6p-54},
    {0x1.7e2f336cf4e62p+0, 0x1.05d02ba15797ep-56},
    {0x1.80427543e1a12p+0, -0x1.27c86626d972bp-54},
    {0x1.82589994cce13p+0, -0x1.d4c1dd41532d8p-54},
    {0x1.8471a4623c7adp+0, -0x1.8d684a341cdfbp-55},
    {0x1.868d99b4492edp+0, -0x1.fc6f89bd4f6bap-54},
    {0x1.88ac7d98a6699p+0, 0x1.994c2f37cb53ap-54},
    {0x1.8ace5422aa0dbp+0, 0x1.6e9f156864b27p-54},
    {0x1.8cf3216b5448cp+0, -0x1.0d55e32e9e3aap-56},
    {0x1.8f1ae99157736p+0, 0x1.5cc13a2e3976cp-55},
    {0x1.9145b0b91ffc6p+0, -0x1.dd6792e582524p-54},
    {0x1.93737b0cdc5e5p+0, -0x1.75fc781b57ebcp-57},
    {0x1.95a44cbc8520fp+0, -0x1.64b7c96a5f039p-56},
    {0x1.97d829fde4e50p+0, -0x1.d185b7c1b85d1p-54},
    {0x1.9a0f170ca07bap+0, -0x1.173bd91cee632p-54},
    {0x1.9c49182a3f090p+0, 0x1.c7c46b071f2bep-56},
    {0x1.9e86319e32323p+0, 0x1.824ca78e64c6ep-56},
    {0x1.a0c667b5de565p+0, -0x1.359495d1cd533p-54},
    {0x1.a309bec4a2d33p+0, 0x1.6305c7ddc36abp-54},
    {0x1.a5503b23e255dp+0, -0x1.d2f6edb8d41e1p-54},
    {0x1.a799e1330b358p+0, 0x1.bcb7ecac563c7p-54},
    {0x1.a9e6b5579fdbfp+0, 0x1.0fac90ef7fd31p-54},
    {0x1.ac36bbfd3f37ap+0, -0x1.f9234cae76cd0p-55},
    {0x1.ae89f995ad3adp+0, 0x1.7a1cd345dcc81p-54},
    {0x1.b0e07298db666p+0, -0x1.bdef54c80e425p-54},
    {0x1.b33a2b84f15fbp+0, -0x1.2805e3084d708p-57},
    {0x1.b59728de5593ap+0, -0x1.c71dfbbba6de3p-54},
    {0x1.b7f76f2fb5e47p+0, -0x1.5584f7e54ac3bp-56},
    {0x1.ba5b030a1064ap+0, -0x1.efcd30e54292ep-54},
    {0x1.bcc1e904bc1d2p+0, 0x1.23dd07a2d9e84p-55},
    {0x1.bf2c25bd71e09p+0, -0x1.efdca3f6b9c73p-54},
    {0x1.c199bdd85529cp+0, 0x1.11065895048ddp-55},
    {0x1.c40ab5fffd07ap+0, 0x1.b4537e083c60ap-54},
    {0x1.c67f12e57d14bp+0, 0x1.2884dff483cadp-54},
    {0x1.c8f6d9406e7b5p+0, 0x1.1acbc48805c44p-56},
    {0x1.cb720dcef9069p+0, 0x1.503cbd1e949dbp-56},
    {0x1.cdf0b555dc3fap+0, -0x1.dd83b53829d72p-55},
    {0x1.d072d4a07897cp+0, -0x1.cbc3743797a9cp-54},
    {0x1.d2f87080d89f2p+0, -0x1.d487b719d8578p-54},
    {0x1.d5818dcfba487p+0, 0x1.2ed02d75b3707p-55},
    {0x1.d80e316c98398p+0, -0x1.11ec18beddfe8p-54},
    {0x1.da9e603db3285p+0, 0x1.c2300696db532p-54},
    {0x1.dd321f301b460p+0, 0x1.2da5778f018c3p-54},
    {0x1.dfc97337b9b5fp+0, -0x1.1a5cd4f184b5cp-54},
    {0x1.e264614f5a129p+0, -0x1.7b627817a1496p-54},
    {0x1.e502ee78b3ff6p+0, 0x1.39e8980a9cc8fp-55},
    {0x1.e7a51fbc74c83p+0, 0x1.2d522ca0c8de2p-54},
    {0x1.ea4afa2a490dap+0, -0x1.e9c23179c2893p-54},
    {0x1.ecf482d8e67f1p+0, -0x1.c93f3b411ad8cp-54},
    {0x1.efa1bee615a27p+0, 0x1.dc7f486a4b6b0p-54},
    {0x1.f252b376bba97p+0, 0x1.3a1a5bf0d8e43p-54},
    {0x1.f50765b6e4540p+0, 0x1.9d3e12dd8a18bp-54},
    {0x1.f7bfdad9cbe14p+0, -0x1.dbb12d006350ap-54},
    {0x1.fa7c1819e90d8p+0, 0x1.74853f3a5931ep-55},
    {0x1.fd3c22b8f71f1p+0, 0x1.2eb74966579e7p-57},
};

constexpr double kLn2Hi = 0x1.62e42fefa3800p-1;  // 42 bits: k kLn2Hi is exact
constexpr double kLn2Lo = 0x1.ef35793c76730p-45;
constexpr double kInvStep = 0x1.71547652b82fep+7;  // 128/log 2
constexpr double kStep1 = 0x1.62e42fef80000p-8;    // log2/128 in three parts, the first two of 35 bits
constexpr double kStep2 = 0x1.1cf79abc80000p-43;
constexpr double kStep3 = 0x1.e3b39803f2f6bp-79;
constexpr double kThirdHi = 0x1.5555555555555p-2;
constexpr double kThirdLo = 0x1.5555555555555p-56;

// x = 2^k m, normal, on log's table: the row of the nearest 1 + i/128 (k one more from i = 54 on), and
// m c - 1 = (m_hi c - 1) + m_lo c, both parts exact (53 and 52 bits, the first by Sterbenz's lemma).
struct LogReduced {
    int k;
    const LogRow* row;
    double r_hi, r_lo;  // the two exact parts of m c - 1
};
inline LogReduced reduce_log(double x) {
    const uint64_t bits = std::bit_cast<uint64_t>(x);
    int k = static_cast<int>(bits >> 52) - 1023;
    const uint64_t frac = bits & 0xfffffffffffffULL;
    const int i = static_cast<int>((frac + (uint64_t{1} << 44)) >> 45);  // nearest 128 (m - 1), 0..128
    if (i >= 54) ++k;
    const double m = from_bits(frac | 0x3ff0000000000000ULL);
    const double m_hi = from_bits(std::bit_cast<uint64_t>(m) & ~((uint64_t{1} << 26) - 1));  // 27 bits
    const LogRow& t = kLog[i];
    return {k, &t, m_hi * t.c - 1.0, (m - m_hi) * t.c};
}

// log x for finite x > 0, as hi + lo.
DD log_dd(double x) {
    int k = 0;
    if (x < 0x1p-1022) {  // subnormal: make it normal
        x *= 0x1p54;
        k = -54;
    }
    const LogReduced red = reduce_log(x);
    k += red.k;
    const LogRow& t = *red.row;
    const DD r = two_sum(red.r_hi, red.r_lo);

    // log(1 + r) = r - r^2/2 + r^3 q, q = 1/3 + p.
    const double rh = r.hi;
    DD r2 = two_prod(rh, rh);
    const double s = r2.hi, s2 = s * s;  // Estrin's scheme: shorter chains than Horner's
    const double w = (1.0 / 5 - rh * (1.0 / 6)) + s * (1.0 / 7 - rh * (1.0 / 8)) + s2 * ((1.0 / 9 - rh * (1.0 / 10)) + s * (1.0 / 11));
    const double p = rh * (-0.25 + rh * w);
    DD q = fast_two_sum(kThirdHi, p);
    q.lo += kThirdLo;
    r2.lo += 2.0 * rh * r.lo;
    DD r3 = two_prod(r2.hi, rh);
    r3.lo += r2.lo * rh + r2.hi * r.lo;
    DD r3q = two_prod(r3.hi, q.hi);
    r3q.lo += r3.lo * q.hi + r3.hi * q.lo;
    const DD f = fast_two_sum(rh, -0.5 * r2.hi);
    const DD g = fast_two_sum(f.hi, r3q.hi);
    const double lp_lo = g.lo + f.lo + r.lo - 0.5 * r2.lo + r3q.lo;

    // k log 2 - log c + log(1 + r)
    const double kd = static_cast<double>(k);
    const DD a = two_sum(kd * kLn2Hi, t.hi);
    const DD b = two_sum(a.hi, g.hi);
    return fast_two_sum(b.hi, a.lo + b.lo + kd * kLn2Lo + t.lo + lp_lo);
}

// t = n log2/128 + (reduced - nd kStep2) for |t| < 2^10: n the nearest integer to t 128/log2 (nd as a
// double); nd kStep1 and nd kStep2 are exact, and so is reduced = t - nd kStep1 (Sterbenz's lemma).
struct ExpReduced {
    double nd;
    int n;
    double reduced;
};
inline ExpReduced reduce_exp(double t) {
    const double shifter = 0x1.8p52;
    const double nd = (t * kInvStep + shifter) - shifter;
    return {nd, static_cast<int>(nd), t - nd * kStep1};
}

// e^(th + tl) for -746 <= th <= 710, |tl| <= ulp(th), correctly rounded (also when subnormal).
double exp_dd(double th, double tl) {
    const ExpReduced red = reduce_exp(th);
    const double nd = red.nd;
    const int k = red.n >> 7;  // floor(n / 128)
    const int j = red.n & 127;
    DD u = two_sum(red.reduced, -(nd * kStep2));
    u = fast_two_sum(u.hi, u.lo + tl - nd * kStep3);

    // e^u - 1 = u + u^2/2 + u^3 v
    const double uh = u.hi;
    DD u2 = two_prod(uh, uh);
    const double v = (1.0 / 6 + uh * (1.0 / 24)) + u2.hi * ((1.0 / 120 + uh * (1.0 / 720)) + u2.hi * (1.0 / 5040));
    u2.lo += 2.0 * uh * u.lo;
    DD e = fast_two_sum(uh, 0.5 * u2.hi);
    e.lo += u.lo + 0.5 * u2.lo + u2.hi * uh * v;

    // 2^(j/128) (1 + e), rounded once
    const DD s = kExp2[j];
    DD pr = two_prod(s.hi, e.hi);
    pr.lo += s.hi * e.lo + s.lo * e.hi + s.lo;
    const DD sum = fast_two_sum(s.hi, pr.hi);
    const DD res = fast_two_sum(sum.hi, sum.lo + pr.lo);  // res.hi in [0.99, 2.01)

    if (k > 1000) return res.hi * pow2(k - 1000) * 0x1p1000;  // may round to +inf, as it should
    if (k >= -1021) return res.hi * pow2(k);
    // A result below 2^-1022 is a whole number of 2^-1074: round hi + lo to it once (scaling the rounded
    // hi would round twice). 2^(k + 1074) is 2^-3 at least (th >= -746).
    const double scale = pow2(k + 1074);
    const double qh = res.hi * scale, ql = res.lo * scale;  // exact
    if (qh >= 0x1p52) return res.hi * pow2(k + 60) * 0x1p-60;  // normal after all: hi is the rounding
    double nq = (qh + 0x1p52) - 0x1p52;  // nearest integer to qh, ties to even
    const double d = qh - nq;            // exact; -0.5 <= d <= 0.5
    if (d == 0.5 && ql > 0.0) nq += 1.0;
    if (d == -0.5 && ql < 0.0) nq -= 1.0;
    return nq * 0x1p-1074;  // exact
}

// x^n for whole 2 <= n <= 64 when it has at most 63 significant bits and is a normal double: x = a 2^e
// with a odd, and a^n is computed as an integer and rounded once. These are the only powers that can fall
// exactly halfway between two doubles (10^23 does), where an approximation however close may round the
// wrong way; every other exactly representable power comes out exact from exp(y log x) too.
bool exact_power(double x, int n, double& out) {
    const uint64_t bits = std::bit_cast<uint64_t>(x);
    const int biased = static_cast<int>(bits >> 52);
    if (biased == 0) return false;  // subnormal
    const uint64_t mant = (bits & 0xfffffffffffffULL) | (uint64_t{1} << 52);
    const int tz = std::countr_zero(mant);
    const uint64_t a = mant >> tz;
    const int e = biased - 1075 + tz;  // x = a 2^e
    if ((std::bit_width(a) - 1) * n >= 63) return false;  // a^n >= 2^63
    const uint64_t limit = (uint64_t{1} << 63) / a;
    uint64_t p = 1;
    for (int i = 0; i < n; ++i) {
        if (p >= limit) return false;
        p *= a;
    }
    const int64_t scale = static_cast<int64_t>(e) * n;
    if (scale < -1022 || scale > 960) return false;  // below the normal range or near overflow
    out = static_cast<double>(static_cast<int64_t>(p)) * pow2(static_cast<int>(scale));  // p rounded once
    return true;
}

// (every double of magnitude 2^52 or more is a whole number, and an even one from 2^53)
bool is_integer(double y) { return !(y > -0x1p52 && y < 0x1p52) || y == static_cast<double>(static_cast<int64_t>(y)); }
bool is_odd(double y) { return y > -0x1p53 && y < 0x1p53 && (static_cast<int64_t>(y) & 1) != 0; }

}  // namespace

double pow(double x, double y) noexcept {
    constexpr double inf = std::numeric_limits<double>::infinity();
    if (y == 0.0 || x == 1.0) return 1.0;
    if (x != x || y != y) return x + y;  // NaN
    const double ax = x < 0.0 ? -x : x;
    const double ay = y < 0.0 ? -y : y;
    if (ay == inf) {
        if (ax == 1.0) return 1.0;  // (-1)^(+-inf)
        return (ax < 1.0) == (y < 0.0) ? inf : 0.0;
    }
    // y is finite and not 0; a negative x needs a whole y and takes its sign from its parity.
    const bool whole = is_integer(y);
    const bool negate = (std::bit_cast<uint64_t>(x) >> 63) != 0 && whole && is_odd(y);  // x < 0 or -0
    const double sign = negate ? -1.0 : 1.0;
    if (ax == 0.0) return sign * (y < 0.0 ? inf : 0.0);
    if (ax == inf) return sign * (y < 0.0 ? 0.0 : inf);
    if (x < 0.0 && !whole) return std::numeric_limits<double>::quiet_NaN();

    double exact = 0.0;
    if (y >= 2.0 && y <= 64.0 && whole && exact_power(ax, static_cast<int>(y), exact)) return sign * exact;
    const uint64_t abits = std::bit_cast<uint64_t>(ax);
    if ((abits & 0xfffffffffffffULL) == 0 && abits >> 52 != 0) {
        // x = 2^e: 2^(e y) is exact when e y is a whole number, and 2^-1075 is halfway to 0 (it goes to 0).
        const DD ey = two_prod(static_cast<double>(static_cast<int>(abits >> 52) - 1023), y);
        if (ey.lo == 0.0 && ey.hi > -2000.0 && ey.hi < 2000.0 && ey.hi == static_cast<double>(static_cast<int>(ey.hi))) {
            const int e = static_cast<int>(ey.hi);
            if (e > 1023) return sign * inf;
            if (e < -1074) return sign * 0.0;
            return sign * (e >= -1022 ? pow2(e) : pow2(e + 1074) * 0x1p-1074);
        }
    }

    const DD l = log_dd(ax);
    const double approx = y * l.hi;
    if (approx > 710.0) return sign * inf;
    if (approx < -746.0) return sign * 0.0;
    DD t = two_prod(y, l.hi);  // |y| < 2^64 here: |l.hi| >= 2^-54 for x != 1
    t = fast_two_sum(t.hi, t.lo + y * l.lo);
    return sign * exp_dd(t.hi, t.lo);
}

}  // namespace orvel

namespace orvel {

double log(double x) noexcept {
    if (x != x) return x;
    if (x < 0.0) return std::numeric_limits<double>::quiet_NaN();
    if (x == 0.0) return -std::numeric_limits<double>::infinity();
    if (x == std::numeric_limits<double>::infinity()) return x;
    if (x == 1.0) return 0.0;
    const DD l = log_dd(x);
    return l.hi + l.lo;
}

double exp(double x) noexcept {
    if (x != x) return x;
    if (x > 710.0) return std::numeric_limits<double>::infinity();
    if (x < -746.0) return 0.0;
    if (x == 0.0) return 1.0;
    return exp_dd(x, 0.0);
}

}  // namespace orvel

namespace orvel {

// log(1 + x) on log's table in plain double arithmetic. u = 1 + x is reduced as log reduces (r = m c - 1
// to one rounding), and the rounding of 1 + x comes back as e/u, so a rate of 1e-12 keeps its digits.
// log(1 + r) = r + r^2 (-1/2 + r/3 - ... + r^5/7) leaves r^8/8 < 2^-67 out (|r| <= 2^-8); the terms add
// smallest first onto k log 2 - log c, whose rounding comes back with them: log1p within an ulp.
double log1p(double x) noexcept {
    if (x != x || x == std::numeric_limits<double>::infinity()) return x;
    if (x <= -1.0) return x == -1.0 ? -std::numeric_limits<double>::infinity() : std::numeric_limits<double>::quiet_NaN();
    const double u = 1.0 + x;         // normal: at least 2^-53
    const double e = x - (u - 1.0);   // exact while u < 2^53 (both differences are)
    const LogReduced red = reduce_log(u);
    const LogRow& t = *red.row;
    const double r = red.r_hi + red.r_lo;
    const double r2 = r * r;
    const double tail = r2 * ((-0.5 + r * (1.0 / 3)) + r2 * ((-0.25 + r * 0.2) + r2 * (-1.0 / 6 + r * (1.0 / 7))));
    const double kd = static_cast<double>(red.k);
    const double k_ln2 = kd * kLn2Hi;  // exact
    const double hi = k_ln2 + t.hi;
    const double hi_lo = (k_ln2 - hi) + t.hi;  // exact: |k log 2| >= |log c| unless k = 0, and then hi = log c
    return hi + (r + (tail + ((hi_lo + t.lo) + (kd * kLn2Lo + e / u))));
}

// e^x - 1 on exp's table in plain double arithmetic: x = n log2/128 + v + w, |v| <= log2/256 and w what
// rounding v dropped, and with s = 2^(n/128) (a table entry, scaled),
// e^x - 1 = (s - 1) + v + (s - 1) v + s (v^2 (1/2 + ... + v^4/720) + w), leaving v^7/5040 < 2^-71 out.
// s - 1 is exact where it cancels (s within a factor 2 of 1); the terms add smallest first, and only the
// last addition and s - 1 (where it does not cancel) round at the size of the result: within an ulp.
double expm1(double x) noexcept {
    if (x != x) return x;
    if (x > 709.0) return exp(x) - 1.0;  // near overflow: exp scales in two steps
    if (x < -40.0) return -1.0;          // e^x below half a unit in the last place of 1
    const ExpReduced red = reduce_exp(x);
    const double nd = red.nd;
    const int n = red.n;
    const double v = red.reduced - nd * kStep2;
    const double w = (red.reduced - v) - nd * kStep2;
    const double v2 = v * v;
    const double tail = v2 * ((0.5 + v * (1.0 / 6)) + v2 * ((1.0 / 24 + v * (1.0 / 120)) + v2 * (1.0 / 720))) + w;
    const DD t = kExp2[n & 127];
    const double scale = pow2(n >> 7);
    const double s = t.hi * scale, s_lo = t.lo * scale;  // exact
    const double sm1 = s - 1.0;
    return sm1 + (v + ((s_lo + sm1 * v) + (s * tail + s_lo * v)));
}

}  // namespace orvel

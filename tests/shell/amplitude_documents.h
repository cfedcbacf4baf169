// The histogram of amplitudes with the fit of two terms in both kinds of document, 576 by 384
// device units on a screen of 96 dots per inch: two ticks of 1.5 pA from -0.5 pA, in four bins, and
// counts up to 4 in ticks of 3.
//
// Every line was computed apart from the program, by a script that knows the axes, the bins and the
// two Gaussians, and writes each element in the order in which one draws: the horizontal axis one
// unit below the bars, the axis of counts, the bars, the sum of the terms, and for each term its
// handles and its curve. A page begins at the bottom, and a point is 4/3 device units.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kAmplitudeInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 576 384
%%TemplateBox: 0 0 576 384
%%EndComments
%%EndProlog
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 216.000 8.143]e
14(Amplitude (pA))t
T
0.000 1.000 1.000 0.000 K
72.000 63.000 m
504.000 63.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
72.000 63.000 m
72.000 55.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 62.000 37.400]e
4(-0.5)t
T
0.000 1.000 1.000 0.000 K
288.000 63.000 m
288.000 55.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 280.500 37.400]e
3(1.0)t
T
0.000 1.000 1.000 0.000 K
504.000 63.000 m
504.000 55.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 496.500 37.400]e
3(2.5)t
T
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 36.000 345.600]e
6(Counts)t
T
0.000 1.000 1.000 0.000 K
72.000 320.000 m
72.000 64.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
72.000 64.000 m
60.000 64.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 64.000]e
1(0)t
T
0.000 1.000 1.000 0.000 K
72.000 192.000 m
60.000 192.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 192.000]e
1(3)t
T
0.000 1.000 1.000 0.000 K
72.000 320.000 m
60.000 320.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 320.000]e
1(6)t
T
1.000 1.000 0.000 0.000 k
72.000 64.000 m
72.000 106.667 l
180.000 106.667 l
180.000 64.000 l
72.000 64.000 l
F
180.000 64.000 m
180.000 234.667 l
288.000 234.667 l
288.000 64.000 l
180.000 64.000 l
F
288.000 64.000 m
288.000 149.333 l
396.000 149.333 l
396.000 64.000 l
288.000 64.000 l
F
396.000 64.000 m
396.000 64.000 l
504.000 64.000 l
504.000 64.000 l
396.000 64.000 l
F
1.000 0.000 0.000 0.000 K
126.000 137.562 m
234.000 179.801 l
342.000 147.313 l
450.000 82.738 l
S
196.200 197.062 m
196.200 186.262 l
207.000 186.262 l
207.000 197.062 l
196.200 197.062 l
S
147.600 191.662 m
255.600 191.662 l
0.25 w
S
255.600 194.362 m
255.600 188.962 l
261.000 188.962 l
261.000 194.362 l
255.600 194.362 l
S
126.000 137.562 m
234.000 179.369 l
342.000 83.070 l
450.000 64.332 l
S
369.000 154.508 m
369.000 143.708 l
379.800 143.708 l
379.800 154.508 l
369.000 154.508 l
S
342.000 149.108 m
406.800 149.108 l
0.25 w
S
406.800 151.808 m
406.800 146.408 l
412.200 146.408 l
412.200 151.808 l
406.800 151.808 l
S
126.000 64.000 m
234.000 64.433 l
342.000 128.243 l
450.000 82.406 l
S
%%Trailer
)";

inline constexpr char kAmplitudeInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 432 288
%%EndComments
%%EndProlog
30 30 translate
/right_show {
  dup
  stringwidth pop
  4 -1 roll exch sub
  3 -1 roll moveto
  show
} def
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
162.000 6.107 moveto
(Amplitude (pA)) show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 47.250 moveto
378.000 47.250 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
54.000 47.250 moveto
54.000 41.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
46.500 28.050 moveto
(-0.5) show
0.000 1.000 1.000 0.000 setcmykcolor
216.000 47.250 moveto
216.000 41.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
210.375 28.050 moveto
(1.0) show
0.000 1.000 1.000 0.000 setcmykcolor
378.000 47.250 moveto
378.000 41.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
372.375 28.050 moveto
(2.5) show
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
27.000 259.200 moveto
(Counts) show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 240.000 moveto
54.000 48.000 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
54.000 48.000 moveto
45.000 48.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 48.000
(0) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 144.000 moveto
45.000 144.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 144.000
(3) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 240.000 moveto
45.000 240.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 240.000
(6) right_show
1.000 1.000 0.000 0.000 setcmykcolor
54.000 48.000 moveto
54.000 80.000 lineto
135.000 80.000 lineto
135.000 176.000 lineto
216.000 176.000 lineto
216.000 112.000 lineto
297.000 112.000 lineto
297.000 48.000 lineto
378.000 48.000 lineto
378.000 48.000 lineto
54.000 48.000 lineto
fill
1.000 0.000 0.000 0.000 setcmykcolor
94.500 103.172 moveto
175.500 134.851 lineto
256.500 110.485 lineto
337.500 62.054 lineto
stroke
147.150 147.796 moveto
147.150 139.696 lineto
155.250 139.696 lineto
155.250 147.796 lineto
147.150 147.796 lineto
stroke
110.700 143.746 moveto
191.700 143.746 lineto
0.25 setlinewidth
stroke
191.700 145.771 moveto
191.700 141.721 lineto
195.750 141.721 lineto
195.750 145.771 lineto
191.700 145.771 lineto
stroke
94.500 103.172 moveto
175.500 134.526 lineto
256.500 62.303 lineto
337.500 48.249 lineto
stroke
276.750 115.881 moveto
276.750 107.781 lineto
284.850 107.781 lineto
284.850 115.881 lineto
276.750 115.881 lineto
stroke
256.500 111.831 moveto
305.100 111.831 lineto
0.25 setlinewidth
stroke
305.100 113.856 moveto
305.100 109.806 lineto
309.150 109.806 lineto
309.150 113.856 lineto
305.100 113.856 lineto
stroke
94.500 48.000 moveto
175.500 48.325 lineto
256.500 96.182 lineto
337.500 61.804 lineto
stroke
showpage
%%EOF
)";

}  // namespace ondrel

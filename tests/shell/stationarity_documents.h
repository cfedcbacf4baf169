// The mean current over time in both kinds of document, 288 by 384 device units on a screen of 96
// dots per inch: two sweeps, the shorter of 9 s, and a kernel of 1.4 s, which leaves 12 samples.
// Nine ticks of 1 s have no room for their numbers, five of 2 s have.
//
// Every line was computed apart from the program, by a script that integrates the part of each
// sample's kernel that the selected levels cover, and writes each element in the order in which one
// draws: the axis of time, the axis of currents, the curve. A page begins at the bottom, and a
// point is 4/3 device units.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kStationarityInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 288 384
%%TemplateBox: 0 0 288 384
%%EndComments
%%EndProlog
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 112.235 9.143]e
8(Time (s))t
T
0.000 1.000 1.000 0.000 K
42.353 64.000 m
252.000 64.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
42.353 64.000 m
42.353 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 42.353 38.400]e
5(0.000)t
T
0.000 1.000 1.000 0.000 K
84.282 64.000 m
84.282 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 84.282 38.400]e
5(2.000)t
T
0.000 1.000 1.000 0.000 K
126.212 64.000 m
126.212 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 126.212 38.400]e
5(4.000)t
T
0.000 1.000 1.000 0.000 K
168.141 64.000 m
168.141 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 168.141 38.400]e
5(6.000)t
T
0.000 1.000 1.000 0.000 K
210.071 64.000 m
210.071 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 210.071 38.400]e
5(8.000)t
T
0.000 1.000 1.000 0.000 K
252.000 64.000 m
252.000 56.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 252.000 38.400]e
6(10.000)t
T
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 21.176 345.600]e
13(Amplitude (A))t
T
0.000 1.000 1.000 0.000 K
42.353 320.000 m
42.353 64.000 l
0.25 w
S
0.000 1.000 1.000 0.000 K
42.353 64.000 m
34.353 64.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 34.124 64.000]e
8(3.00E-14)t
T
0.000 1.000 1.000 0.000 K
42.353 192.000 m
34.353 192.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 34.124 192.000]e
8(4.00E-14)t
T
0.000 1.000 1.000 0.000 K
42.353 320.000 m
34.353 320.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 34.124 320.000]e
8(5.00E-14)t
T
1.000 1.000 0.000 0.000 K
130.405 294.278 m
131.405 248.999 l
132.405 209.140 l
133.405 174.539 l
134.405 145.043 l
135.405 120.506 l
136.405 100.796 l
137.405 85.788 l
138.405 75.370 l
139.405 69.443 l
140.405 67.919 l
141.405 70.722 l
0.25 w
S
%%Trailer
)";

inline constexpr char kStationarityInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 216 288
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
84.176 6.857 moveto
(Time (s)) show
0.000 1.000 1.000 0.000 setcmykcolor
31.765 48.000 moveto
189.000 48.000 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
31.765 48.000 moveto
31.765 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
31.765 28.800 moveto
(0.000) show
0.000 1.000 1.000 0.000 setcmykcolor
63.212 48.000 moveto
63.212 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
63.212 28.800 moveto
(2.000) show
0.000 1.000 1.000 0.000 setcmykcolor
94.659 48.000 moveto
94.659 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
94.659 28.800 moveto
(4.000) show
0.000 1.000 1.000 0.000 setcmykcolor
126.106 48.000 moveto
126.106 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
126.106 28.800 moveto
(6.000) show
0.000 1.000 1.000 0.000 setcmykcolor
157.553 48.000 moveto
157.553 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
157.553 28.800 moveto
(8.000) show
0.000 1.000 1.000 0.000 setcmykcolor
189.000 48.000 moveto
189.000 42.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
189.000 28.800 moveto
(10.000) show
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
15.882 259.200 moveto
(Amplitude (A)) show
0.000 1.000 1.000 0.000 setcmykcolor
31.765 240.000 moveto
31.765 48.000 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
31.765 48.000 moveto
25.765 48.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
25.593 48.000
(3.00E-14) right_show
0.000 1.000 1.000 0.000 setcmykcolor
31.765 144.000 moveto
25.765 144.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
25.593 144.000
(4.00E-14) right_show
0.000 1.000 1.000 0.000 setcmykcolor
31.765 240.000 moveto
25.765 240.000 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
25.593 240.000
(5.00E-14) right_show
1.000 1.000 0.000 0.000 setcmykcolor
97.804 220.709 moveto
98.554 186.750 lineto
99.304 156.855 lineto
100.054 130.904 lineto
100.804 108.782 lineto
101.554 90.380 lineto
102.304 75.597 lineto
103.054 64.341 lineto
103.804 56.528 lineto
104.554 52.083 lineto
105.304 50.940 lineto
106.054 53.042 lineto
0.25 setlinewidth
stroke
showpage
%%EOF
)";

}  // namespace ondrel

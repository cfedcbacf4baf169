// The outlined histogram of durations on a square root axis in both kinds of document, 576 by 384
// device units on a screen of 96 dots per inch: two decades from 1 ms, in four bins, and counts up
// to 4 in ticks of 1. The last minor tick of a decade is the next decade.
//
// Every line was computed apart from the program, by a script that knows the axes and the bins, and
// writes each element in the order in which one draws: the horizontal axis one unit below the bars,
// the axis of counts, the outline. A page begins at the bottom, and a point is 4/3 device units.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kDurationInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 576 384
%%TemplateBox: 0 0 576 384
%%EndComments
%%EndProlog
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 216.000 8.143]e
16(log Duration (s))t
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
[1 0 0 1 67.000 37.400]e
2(-3)t
T
0.000 1.000 1.000 0.000 K
180.000 63.000 m
180.000 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
243.176 63.000 m
243.176 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
288.000 63.000 m
288.000 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
288.000 63.000 m
288.000 55.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 283.000 37.400]e
2(-2)t
T
0.000 1.000 1.000 0.000 K
396.000 63.000 m
396.000 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
459.176 63.000 m
459.176 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
504.000 63.000 m
504.000 57.880 l
0.25 w
S
0.000 1.000 1.000 0.000 K
504.000 63.000 m
504.000 55.000 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 499.000 37.400]e
2(-1)t
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
1(1)t
T
0.000 1.000 1.000 0.000 K
72.000 245.019 m
60.000 245.019 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 245.019]e
1(2)t
T
0.000 1.000 1.000 0.000 K
72.000 285.703 m
60.000 285.703 l
0.25 w
S
1.000 0.000 1.000 0.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 285.703]e
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
1(4)t
T
1.000 1.000 0.000 0.000 K
72.000 64.000 m
72.000 192.000 l
180.000 192.000 l
180.000 320.000 l
288.000 320.000 l
288.000 64.000 l
396.000 64.000 l
396.000 245.019 l
504.000 245.019 l
504.000 64.000 l
0.25 w
S
%%Trailer
)";

inline constexpr char kDurationInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
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
(log Duration (s)) show
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
50.250 28.050 moveto
(-3) show
0.000 1.000 1.000 0.000 setcmykcolor
135.000 47.250 moveto
135.000 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
182.382 47.250 moveto
182.382 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
216.000 47.250 moveto
216.000 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
216.000 47.250 moveto
216.000 41.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
212.250 28.050 moveto
(-2) show
0.000 1.000 1.000 0.000 setcmykcolor
297.000 47.250 moveto
297.000 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
344.382 47.250 moveto
344.382 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
378.000 47.250 moveto
378.000 43.410 lineto
0.25 setlinewidth
stroke
0.000 1.000 1.000 0.000 setcmykcolor
378.000 47.250 moveto
378.000 41.250 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
374.250 28.050 moveto
(-1) show
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
(1) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 183.765 moveto
45.000 183.765 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 183.765
(2) right_show
0.000 1.000 1.000 0.000 setcmykcolor
54.000 214.277 moveto
45.000 214.277 lineto
0.25 setlinewidth
stroke
1.000 0.000 1.000 0.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 214.277
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
(4) right_show
1.000 1.000 0.000 0.000 setcmykcolor
54.000 48.000 moveto
54.000 144.000 lineto
135.000 144.000 lineto
135.000 240.000 lineto
216.000 240.000 lineto
216.000 48.000 lineto
297.000 48.000 lineto
297.000 183.765 lineto
378.000 183.765 lineto
378.000 48.000 lineto
0.25 setlinewidth
stroke
showpage
%%EOF
)";

}  // namespace ondrel

// The amplitude/duration plot of one level in both kinds of document, 576 by 576 device units on a
// screen of 96 dots per inch: two decades from 1 ms, and two ticks of 1 pA.
#pragma once

namespace ondrel {

/// Lines end in CR and LF.
inline constexpr char kScatterInIllustrator[] = R"(%!PS-Adobe-2.0 EPSF-1.2
%%DocumentProcSets: Adobe_Illustrator_1.1 0 0
%%BoundingBox: 0 0 576 576
%%TemplateBox: 0 0 576 576
%%EndComments
%%EndProlog
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 216.000 13.714]e
16(log Duration (s))t
T
0.000 0.000 0.000 1.000 K
72.000 96.000 m
504.000 96.000 l
0.25 w
S
0.000 0.000 0.000 1.000 K
72.000 96.000 m
72.000 84.000 l
0.25 w
S
0.000 0.000 0.000 1.000 K
72.000 96.000 m
72.000 88.320 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 72.000 57.600]e
2(-3)t
T
0.000 0.000 0.000 1.000 K
288.000 96.000 m
288.000 84.000 l
0.25 w
S
0.000 0.000 0.000 1.000 K
288.000 96.000 m
288.000 88.320 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 288.000 57.600]e
2(-2)t
T
0.000 0.000 0.000 1.000 K
504.000 96.000 m
504.000 84.000 l
0.25 w
S
0.000 0.000 0.000 1.000 K
504.000 96.000 m
504.000 88.320 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 504.000 57.600]e
2(-1)t
T
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 0 z
[1 0 0 1 36.000 518.400]e
14(Amplitude (pA))t
T
0.000 0.000 0.000 1.000 K
72.000 480.000 m
72.000 96.000 l
0.25 w
S
0.000 0.000 0.000 1.000 K
72.000 96.000 m
60.000 96.000 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 96.000]e
3(0.0)t
T
0.000 0.000 0.000 1.000 K
72.000 288.000 m
60.000 288.000 l
0.25 w
S
0.000 0.000 0.000 1.000 k
/_Helvetica 10 10 0 2 z
[1 0 0 1 55.543 288.000]e
3(1.0)t
T
0.000 1.000 1.000 0.000 k
287.000 289.000 m
289.000 289.000 l
289.000 287.000 l
287.000 287.000 l
287.000 289.000 l
F
%%Trailer
)";

inline constexpr char kScatterInEps[] = R"(%!PS-Adobe-3.0 EPSF-3.0
%%BoundingBox: 0 0 432 432
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
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
162.000 10.286 moveto
(log Duration (s)) show
0.000 0.000 0.000 1.000 setcmykcolor
54.000 72.000 moveto
378.000 72.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
54.000 72.000 moveto
54.000 63.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
54.000 72.000 moveto
54.000 66.240 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
54.000 43.200 moveto
(-3) show
0.000 0.000 0.000 1.000 setcmykcolor
216.000 72.000 moveto
216.000 63.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
216.000 72.000 moveto
216.000 66.240 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
216.000 43.200 moveto
(-2) show
0.000 0.000 0.000 1.000 setcmykcolor
378.000 72.000 moveto
378.000 63.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
378.000 72.000 moveto
378.000 66.240 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
378.000 43.200 moveto
(-1) show
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
27.000 388.800 moveto
(Amplitude (pA)) show
0.000 0.000 0.000 1.000 setcmykcolor
54.000 360.000 moveto
54.000 72.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
54.000 72.000 moveto
45.000 72.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 72.000
(0.0) right_show
0.000 0.000 0.000 1.000 setcmykcolor
54.000 216.000 moveto
45.000 216.000 lineto
0.25 setlinewidth
stroke
0.000 0.000 0.000 1.000 setcmykcolor
/Helvetica findfont
10 scalefont setfont
41.657 216.000
(1.0) right_show
0.000 1.000 1.000 0.000 setcmykcolor
215.250 216.750F
216.750 216.750 lineto
216.750 215.250 lineto
215.250 215.250 lineto
215.250 216.750 lineto
fill
showpage
%%EOF
)";

}  // namespace ondrel

# Draws what scripts/bench has measured.
#
# usage: gnuplot -c performance.gnuplot FOLDER PICTURE.png   FOLDER: with the files "ratios", "growth"

ratios = ARG1 . "/ratios"
growth = ARG1 . "/growth"
set terminal pngcairo size 1600,1500 fontscale 1.5 linewidth 2 font "DejaVu Sans"
set output ARG2
set datafile separator tab
set multiplot

array colour[3] = ["#0072b2", "#e69f00", "#009e73"]
red = "#d55e00"
grey = "#888888"
set border 3 linecolor rgb grey
set tics nomirror textcolor rgb "black"
set grid linecolor rgb "#dddddd" linetype 1

# A bar for each row of the table, the first at the top.
stats ratios skip 1 using 4 nooutput
rows = STATS_records
height(i) = rows - i
set tmargin at screen 0.90
set bmargin at screen 0.54
set lmargin at screen 0.36
set rmargin at screen 0.97
set label 1 "Time and memory compared with the reference programs" at screen 0.5,0.975 center font ",13"
set label 2 "launcher : reference" at 3.3,rows + 0.75
set xlabel "launcher / reference (less than 1: the launcher takes less)" offset -12,0
set xrange [0:5]
set xtics 0,0.5,3
set yrange [0.4:rows + 0.6]
set ytics scale 0
set border 2
set grid noytics
set key horizontal at screen 0.62,0.94 samplen 1.5 width 1 maxrows 1
set arrow 1 from 1, graph 0 to 1, graph 1 nohead linecolor rgb grey
set style fill solid noborder
plot ratios skip 1 using (0):(height($0)):(0):4:(height($0) - 0.28):(height($0) + 0.28):ytic(1) \
    with boxxyerror linecolor rgb colour[1] title "measured", \
  "" skip 1 using 6:(height($0) - 0.4):(0):(0.8) with vectors nohead linewidth 2.5 \
    linecolor rgb colour[3] title "aim", \
  "" skip 1 using 5:(height($0) - 0.4):(0):(0.8) with vectors nohead linewidth 2.5 \
    linecolor rgb red title "must", \
  "" skip 1 using (3.3):(height($0)):(sprintf("%s : %s", strcol(2), strcol(3))) \
    with labels left notitle

# A line for each kind of size, and the limit: twelve times the time for ten times the size.
unset arrow
unset label
set border 3
set label 1 "Growth with the size of the input" at screen 0.5,0.455 center font ",13"
set tmargin at screen 0.43
set bmargin at screen 0.08
set lmargin at screen 0.12
set rmargin at screen 0.97
set xlabel "size, as a multiple of the smallest" offset 0,0
set ylabel "time of a launch (ms)"
set logscale xy
set xrange [0.8:1250]
set yrange [1:50000]
set xtics (1, 10, 100, 1000)
set ytics 10 scale 1
set grid ytics
set format y "%.0f"
set key vertical inside top left Left reverse samplen 2 maxrows 4
array start[3]
do for [i = 1:3] {
  stats growth index i - 1 skip 1 using 2 nooutput
  start[i] = STATS_min
}
limit(i, x) = start[i] * x ** log10(12)
plot for [i = 1:3] growth index i - 1 using 1:2 with linespoints pointtype 7 pointsize 1.6 \
    linewidth 2 linecolor rgb colour[i] title columnheader(1), \
  for [i = 1:3] limit(i, x) linecolor rgb colour[i] dashtype 3 notitle, \
  NaN linecolor rgb grey dashtype 3 title "limit: twelve times the time for ten times the size"
unset multiplot

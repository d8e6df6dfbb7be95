# Completion of velmarch-cli for bash. Identities are completed from the last records of the home.

_velmarch_cli_home() { # --home as typed so far
    local i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        [ "${COMP_WORDS[i]}" != --home ] || printf '%s\n' --home "${COMP_WORDS[i + 1]/#\~/$HOME}"
    done
}

_velmarch_cli_ids() { # time or expense
    local options kind=time
    [ "$1" != expense ] || kind=expense
    mapfile -t options < <(_velmarch_cli_home)
    velmarch-cli "${options[@]}" --quiet --json "$kind" list --sort id:desc --limit 50 2> /dev/null < /dev/null |
        sed -n 's/^{"id": "\([0-9A-F]*\)".*/\1/p'
}

_velmarch_cli_names() { # settings
    local options
    mapfile -t options < <(_velmarch_cli_home)
    velmarch-cli "${options[@]}" --quiet --json settings list 2> /dev/null < /dev/null | sed -n 's/.*"name": "\([^"]*\)".*/\1/p'
}

_velmarch_cli_stored() { # report or query, time or expense
    local options
    mapfile -t options < <(_velmarch_cli_home)
    velmarch-cli "${options[@]}" --quiet "$1" list --mode "$2" 2> /dev/null < /dev/null | sed 's/^\(grouped\|listing\|compound\)  *//'
}

_velmarch_cli() {
    local mode=time IFS=$' \t\n'
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} group='' command='' i choices=
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --home) ((++i)) ;;
        --mode) mode=${COMP_WORDS[i + 1]} ;;
        -*) ;;
        *) if [ -z "$group" ]; then group=${COMP_WORDS[i]}; elif [ -z "$command" ]; then command=${COMP_WORDS[i]}; fi ;;
        esac
    done
    COMPREPLY=()
    local global='--home --json --yes --quiet --version --help'
    local fields='--date --item1 --item2 --item3 --item4 --item5 --notes --billable --start --end --duration --break --rate
        --amount --billed'
    local expense='--date --item1 --item2 --item3 --item4 --item5 --notes --distance-entry --distance --rate --odometer-start
        --odometer-end --amount --flag1 --flag2 --flag3 --flag4 --flag5'
    local definition='--mode --kind --group --sum --columns --sort --title --header --footer --query --select'
    local text='--qualifier --separator --terminator --encoding'
    local filter='--period --day --from --to --item1 --item2 --item3 --item4 --item5 --whole --case'
    case $before in
    --home) mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --as) choices='first first-second exported not-exported'; [ "$group" != expense ] || choices+=' third third-fourth fifth' ;;
    --from) choices='today yesterday'; [ "$command" != new ] || choices='blank defaults: copy:'
        [ "$command" != save ] || choices=$(_velmarch_cli_ids time) ;;
    --mode) choices='time expense' ;;
    --form) choices='4 2' ;;
    --on-error) choices='ask abort retry ignore' ;;
    --post) choices='nothing delete mark' ;;
    --kind) choices='grouped listing compound' ;;
    --select) choices='selected listed query' ;;
    --query) IFS=$'\n' choices=$(_velmarch_cli_stored query "$([ "$group" = expense ] && echo expense || echo "$mode")") ;;
    --breaks) choices=none ;;
    --date | --day | --to) choices='today yesterday' ;;
    --billable | --billed | --exported | --timers | --flag? | --distance-entry | --distance-entries) choices='yes no' ;;
    --clear) choices='item1 item2 item3 item4 item5 notes rate amount'
        [ "$group" = expense ] && choices+=' distance odometer-start odometer-end flag1 flag2 flag3 flag4 flag5'
        [ "$group" = time ] && choices+=' billable start end duration break billed' ;;
    --sort) [ "$group" = expense ] && choices='date item1 item2 item3 item4 item5 isDistance distance rate amount
        odometerStart odometerEnd flag1 flag2 flag3 flag4 flag5 isExported notes id' || choices='date start end duration
        break effective item1 item2 item3 item4 item5 rate amount isBillable isBilled isExported notes id' ;;
    --period) choices=$(velmarch-cli --json period list 2> /dev/null | grep -o '"preset": [0-9]*' | grep -o '[0-9]*') ;;
    --successive) choices=$(_velmarch_cli_ids "$group") ;;
    --item? | --notes | --start | --end | --duration | --break | --rate | --amount | --limit | --seed | --distance | \
        --odometer-* | --width) return ;;
    esac
    [ -n "$choices" ] || case "$group $command" in
        ' ') choices="time expense timer lists items tree labels defaults columns report query settings day period import export history undo redo
            backup verify restore texts doctor demo $global" ;;
        'time ' | 'expense ') choices="add edit show delete copy mark new list $global" ;;
        'timer ') choices="start pause stop stop-all pause-all drop status $global" ;;
        'items ') choices="list add rename merge delete clear $global" ;;
        'tree ') choices="show add remove $global" ;;
        'labels ') choices="list set reset preset $global" ;;
        'defaults ') choices="list show save rename delete $global" ;;
        'report ') choices="fields list show save edit rename delete run $global" ;;
        'query ') choices="list show save rename delete $global" ;;
        'columns ') choices="list set reset $global" ;;
        'settings ') choices="list own get set reset $global" ;;
        'period ') choices="list show $global" ;;
        'import ' | 'export ') choices="records items $global" ;;
        'demo ') choices="fill $global" ;;
        'day ') choices="today yesterday $global" ;;
        'time add') choices="$fields $global" ;;
        'expense add') choices="$expense $global" ;;
        'expense edit') choices="$expense --clear $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids "$group") ;;
        'expense list') choices="$filter --query --flag1 --flag2 --flag3 --flag4 --flag5 --exported --distance-entries --amount --sort
            --limit $global" ;;
        'items list' | 'items add' | 'items rename' | 'items merge' | 'items delete' | 'items clear') choices=$global
            [ "$command" != rename ] || choices="--in-records $global"
            [[ $word == -* ]] || choices='16 17 34 32 33 68 69 70 71 72 73' ;;
        'tree show' | 'tree add' | 'tree remove') choices="time expense $global" ;;
        'labels preset') choices="1 2 $global" ;;
        'defaults list' | 'defaults show' | 'defaults rename' | 'defaults delete') choices="--mode $global" ;;
        'defaults save') choices="--mode --from $fields $expense $global" ;;
        'report fields') choices="--mode $global" ;;
        'report list') choices="--mode --kind $global" ;;
        'report save' | 'report edit') choices="$definition $global" ;;
        'report run') choices="$definition --ids --format --out $filter --billable --billed --exported --timers --flag1 --flag2 --flag3
            --flag4 --flag5 --distance-entries --amount $global" ;;
        'report show' | 'report rename' | 'report delete') choices="--mode --kind $global" ;;
        'query save') choices="--mode $filter --billable --billed --flag1 --flag2 --flag3 --flag4 --flag5 --distance-entries --amount
            $global" ;;
        'query list' | 'query show' | 'query rename' | 'query delete') choices="--mode $global" ;;
        'columns list' | 'columns reset') choices="time expense --tree $global" ;;
        'columns set') choices="time expense --tree --width --breaks $global" ;;
        'time edit') choices="$fields --clear $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids "$group") ;;
        'time mark' | 'expense mark') choices="--as $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids "$group") ;;
        'time new' | 'expense new') choices="--from --timestamp --successive --timer $global" ;;
        'time list') choices="$filter --query --billable --billed --exported --timers --sort --limit $global" ;;
        'time show' | 'time delete' | 'time copy' | 'expense show' | 'expense delete' | 'expense copy' | \
            'timer start' | 'timer pause' | 'timer drop')
            choices=$global; [[ $word == -* ]] || choices=$(_velmarch_cli_ids "$group") ;;
        'timer stop') choices="--true-time $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids time) ;;
        'settings get' | 'settings set' | 'settings reset')
            choices=$global; [[ $word == -* ]] || choices=$(_velmarch_cli_names) ;;
        'import records' | 'import items' | 'export records' | 'export items')
            choices="$text $global"; [ "$command" = items ] || choices+=' --mode'
            [ "$group" != import ] || choices+=' --dry-run'
            [ "$group $command" != 'import records' ] || choices+=' --form --no-list-items --on-error --skip-duplicates'
            [ "$group $command" != 'export records' ] || choices+=" $filter --query --sort --post"
            [[ $word == -* ]] || { mapfile -t COMPREPLY < <(compgen -f -- "$word"); return; } ;;
        'backup '* | 'verify '* | 'restore '*) mapfile -t COMPREPLY < <(compgen -f -- "$word"); return ;;
        'history ') choices="--limit $global" ;;
        'undo ' | 'redo ') choices="--skip $global" ;;
        'demo fill') choices="--seed $global" ;;
        *) choices=$global ;;
    esac
    if [[ $word != -* && $before != --* ]]; then
        case "$group $command" in
        'report show' | 'report edit' | 'report rename' | 'report delete' | 'report run' | 'query show' | 'query rename' | 'query delete')
            IFS=$'\n' choices=$(_velmarch_cli_stored "$group" "$mode") ;;
        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
    [ "$IFS" = $' \t\n' ] || [ ${#COMPREPLY[@]} = 0 ] || mapfile -t COMPREPLY < <(printf '%q\n' "${COMPREPLY[@]}")
}
complete -F _velmarch_cli velmarch-cli

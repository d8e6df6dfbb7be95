# Completion of velmarch-cli for bash. Identities are completed from the last records of the home.

_velmarch_cli_home() { # --home as typed so far
    local i
    for ((i = 1; i < COMP_CWORD; ++i)); do
        [ "${COMP_WORDS[i]}" != --home ] || printf '%s\n' --home "${COMP_WORDS[i + 1]/#\~/$HOME}"
    done
}

_velmarch_cli_ids() {
    local options
    mapfile -t options < <(_velmarch_cli_home)
    velmarch-cli "${options[@]}" --quiet --json time list --sort id:desc --limit 50 2> /dev/null < /dev/null |
        sed -n 's/^{"id": "\([0-9A-F]*\)".*/\1/p'
}

_velmarch_cli_names() { # settings
    velmarch-cli --quiet --json settings list 2> /dev/null < /dev/null | sed -n 's/.*"name": "\([^"]*\)".*/\1/p'
}

_velmarch_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} group='' command='' i choices=
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --home) ((++i)) ;;
        -*) ;;
        *) if [ -z "$group" ]; then group=${COMP_WORDS[i]}; elif [ -z "$command" ]; then command=${COMP_WORDS[i]}; fi ;;
        esac
    done
    COMPREPLY=()
    local global='--home --json --yes --quiet --version --help'
    local fields='--date --item1 --item2 --item3 --item4 --item5 --notes --billable --start --end --duration --break --rate
        --amount --billed'
    case $before in
    --home) mapfile -t COMPREPLY < <(compgen -d -- "$word"); return ;;
    --as) choices='first first-second exported not-exported' ;;
    --from) [ "$command" != new ] || choices='blank copy:'; [ "$command" = new ] || choices='today yesterday' ;;
    --date | --day | --to) choices='today yesterday' ;;
    --billable | --billed | --exported | --timers) choices='yes no' ;;
    --clear) choices='item1 item2 item3 item4 item5 notes billable start end duration break rate amount billed' ;;
    --sort) choices='date start end duration break effective item1 item2 item3 item4 item5 rate amount isBillable isBilled
        isExported notes id' ;;
    --period) choices=$(velmarch-cli --json period list 2> /dev/null | grep -o '"preset": [0-9]*' | grep -o '[0-9]*') ;;
    --successive) choices=$(_velmarch_cli_ids) ;;
    --item? | --notes | --start | --end | --duration | --break | --rate | --amount | --limit | --seed) return ;;
    esac
    [ -n "$choices" ] || case "$group $command" in
        ' ') choices="time timer settings day period texts doctor demo $global" ;;
        'time ') choices="add edit show delete copy mark new list $global" ;;
        'timer ') choices="start pause stop stop-all pause-all drop status $global" ;;
        'settings ') choices="list get set reset $global" ;;
        'period ') choices="list show $global" ;;
        'demo ') choices="fill $global" ;;
        'day ') choices="today yesterday $global" ;;
        'time add') choices="$fields $global" ;;
        'time edit') choices="$fields --clear $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids) ;;
        'time mark') choices="--as $global"; [[ $word == -* ]] || choices=$(_velmarch_cli_ids) ;;
        'time new') choices="--from --timestamp --successive --timer $global" ;;
        'time list') choices="--period --day --from --to --item1 --item2 --item3 --item4 --item5 --whole --case --billable
            --billed --exported --timers --sort --limit $global" ;;
        'time show' | 'time delete' | 'time copy' | 'timer start' | 'timer pause' | 'timer stop' | 'timer drop')
            choices=$global; [[ $word == -* ]] || choices=$(_velmarch_cli_ids) ;;
        'settings get' | 'settings set' | 'settings reset')
            choices=$global; [[ $word == -* ]] || choices=$(_velmarch_cli_names) ;;
        'demo fill') choices="--seed $global" ;;
        *) choices=$global ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}
complete -F _velmarch_cli velmarch-cli
